#include "tests/chart/PatchedCharts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <sstream>

#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/ContrastGroup.h"
#include "host/FetchFile.h"
#include "host/PathFactory.h"
#include "host/ViZEditor.h"
#include "host/XDocument.h"
#include "host/XViZTemplate.h"

namespace hierfit::test {

namespace {

constexpr KEST_Format kFormat{40, KEST_FormatType::Numeric, 2};

void InsertAt(std::string& xml, std::size_t place, const std::string& text) {
    if (place != std::string::npos) xml.insert(place, text);
}

std::string Convert(const char* name, const std::vector<const char*>& slots, const std::string& label, bool hasTitle) {
    XViZTemplate chart;
    chart.setTemplateInternalName(name);
    if (hasTitle) chart.addLabel(0, label);
    for (const char* slot : slots) chart.addVariable(slot, slot, slot[0] == 'e', label, "source0", &kFormat, label);
    std::string xml;
    std::string unused;
    chart.convert(xml, unused);
    return xml;
}

std::string Fetch(const std::string& name) {
    return FetchFile::fetch(PathFactory::getPathInstance(3).GetBaseDirectory() + "template/" + name, true, true);
}

std::string Histogram(const std::string& label, const std::string& distribution) {
    std::string xml = Convert("GLMMHistogram", {"X", "Y"}, label, false);
    InsertAt(xml, xml.find("binStatistic") + 12, " binCount=\"30\" ");
    if (distribution != "normal") {
        ReplaceFirst(xml, "normal", distribution, xml.find("binStatistic"));
        InsertAt(xml, xml.find("<distributionStatistic") + 22, " parameter=\"2.5\"  secondaryParameter=\"inf\" ");
    }
    XDocument document(xml);
    document.applyTemplates();
    return document.AsUTF8();
}

std::string PredictedByObserved(const std::string& label) {
    std::string xml = Convert("GLMMPredictedByObserved", {"X", "Y", "Transparency"}, label, true);
    ReplaceFirst(xml, "98.8", "1e+06");
    ReplaceFirst(xml, "33.667", "-0.5");
    InsertAt(xml, xml.find("id=\"legendStyle"), " visible=\"false\" ");
    return xml;
}

std::string TopMeans(const std::string& label, int nFactors) {
    std::string xml = Convert("GLMMEmMeans", {"effect1", "effect2", "target", "confMargin"}, label, true);
    ReplaceFirst(xml, "YAxisLabel", label);
    if (nFactors < 2) EraseFromThrough(xml, "<legend", "</legend>");
    return xml;
}

std::string CustomEffects(const std::string& label, int nFactors) {
    std::string xml =
        Convert("GLMMCustomEffects", {"targetValue", "effect1", "effect2", "effect3", "confMargin"}, label, false);
    ReplaceFirst(xml, "TitleText", "Estimates", xml.find(">TitleText"));
    ReplaceFirst(xml, "FootnoteText", label);
    ReplaceFirst(xml, "popup2", label, ReplaceFirst(xml, "popup1", label));
    if (nFactors < 3) RemoveFacetingBlock(xml);
    if (nFactors < 2) {
        EraseFromThrough(xml, "<color", "/>");
        EraseFromThrough(xml, "<legend id=\"legend\">", "</legend>");
        ReplaceFirst(xml, "75", "99", xml.find("75%"));
    }
    return xml;
}

/// Of eight nodes.
std::string Diagram(const std::string& label, bool isOfEffects) {
    std::string xml = Fetch("GLMMFixedCoefficients.viztemplate");
    ReplaceFirst(xml, "9.3", "10.6667");
    ReplaceFirst(xml, "7.0", "8");
    InsertAt(xml, xml.find("id=\"graphStyle") + 15, " margin-bottom=\"30px\" ");
    ReplaceFirst(xml, "title1", label);
    const std::string stream = R"([{"source":"a<b","rows":0,"variables":[{"name":"X","values":[1.5,null]}]}])";
    xml = ViZEditor::GetInstance().EmbedHistogramInGraph(xml, Histogram(label, "gamma"), stream.data(),
                                                         static_cast<int>(stream.size()), 2);
    const std::size_t high = xml.find("high=");
    xml.replace(high + 6, 1, "8");
    xml.replace(xml.find("low=", high) + 5, 1, "2");
    if (isOfEffects) {
        InsertAt(xml, xml.find("id=\"legendStyle\"") - 1, " visible=\"false\" ");
    } else {
        ReplaceFirst(xml, "Coefficient Estimate", label);
    }
    return xml;
}

void CutPanels(std::string& xml, int nPanelVariables) {
    if (nPanelVariables == 0) RemoveFacetingBlock(xml);
    if (nPanelVariables == 1) RemoveSecondFacet(xml);
}

std::string Pairwise(const std::string& label, int nPanelVariables) {
    std::string xml = Fetch("GLMMPairwiseContrasts.viztemplate");
    ReplaceFirst(xml, "TitleText", label);
    ReplaceFirst(xml, "subTitleText", label);
    ReplaceFirst(xml, "FootnoteText", label);
    CutPanels(xml, nPanelVariables);
    return xml;
}

std::string LevelContrasts(const std::string& label, int nPanelVariables) {
    std::string xml = Convert("GLMMSimpleContrasts",
                              {"value", "category", "type", "facet1", "facet2", "confMargin", "tooltip"}, label, false);
    ReplaceFirst(xml, "TitleText", label);
    ReplaceFirst(xml, "CaptionText", label);
    ReplaceFirst(xml, "FootnoteText", label);
    const ContrastGroup group{{nPanelVariables > 0 ? label : "", nPanelVariables > 1 ? label : ""}, 1.25};
    FillLineGuides(xml, {{"first", group}, {"second", group}});
    CutPanels(xml, nPanelVariables);
    return xml;
}

/// What the procedure searches the templates for, one behind the other.
constexpr const char* kMarkers =
    "98.8|33.667|9.3|7.0|75%|title1|TitleText|subTitleText|>TitleText|FootnoteText|CaptionText|YAxisLabel|popup1|"
    "popup2|"
    "whenText|y=|y=\"00\"|high=|low=|id=\"graphStyle|<color|<faceting|</facetLayout>|<lineGuide|</lineGuide>|<legend|"
    "</legend>|<legend id=\"legend\">|id=\"legendStyle\"|<variableReference|</variableReference>|<facetLevel |"
    "</facetLevel>|Coefficient Estimate|binStatistic|normal|<distributionStatistic|</chart>|/>";

}  // namespace

std::vector<PatchedChart> MakePatchedCharts(const std::string& label) {
    std::vector<PatchedChart> charts{{"histogram normal", Histogram(label, "normal")},
                                     {"histogram gamma", Histogram(label, "gamma")},
                                     {"predicted", PredictedByObserved(label)},
                                     {"diagram of effects", Diagram(label, true)},
                                     {"diagram of coefficients", Diagram(label, false)}};
    for (const int n : {1, 2}) charts.push_back({fmt::format("means {}", n), TopMeans(label, n)});
    for (const int n : {1, 2, 3}) charts.push_back({fmt::format("custom {}", n), CustomEffects(label, n)});
    for (const int panels : {0, 1, 2}) {
        charts.push_back({fmt::format("pairwise {}", panels), Pairwise(label, panels)});
        charts.push_back({fmt::format("levels {}", panels), LevelContrasts(label, panels)});
    }
    return charts;
}

bool IsTakenForMarker(const std::string& chart, const std::string& label) {
    constexpr std::array<std::string_view, 4> kOfGuides{"whenText", "y=", "y=\"00\"", "</lineGuide>"};
    if (chart.starts_with("levels")) return std::ranges::find(kOfGuides, label) != kOfGuides.end();
    return chart.starts_with("custom") && label == "popup2";
}

/// Markup, ends of sections, blanks, controls, directions, what is no character and what is no UTF-8, and markers.
std::vector<std::string> HostileLabels() {
    std::vector<std::string> labels{"<b a='1'>&amp;&</b>",
                                    "\"'\"\\",
                                    "a]]>b]]>",
                                    "]]]]><![CDATA[>]]",
                                    "<!-- -- --><?x?>",
                                    "  a  b  ",
                                    "a\nb\n",
                                    std::string("a\0\x01\x1F]]\x02>z", 9),
                                    "\u202Eabc\u2066\u200F",
                                    "a\xEF\xBF\xBE\xEF\xBF\xBFz",
                                    "a\xFF\xC3z\xED\xA0\x80",
                                    std::string(10'000, '<')};
    std::istringstream markers(kMarkers);
    for (std::string marker; std::getline(markers, marker, '|');) labels.push_back(marker);
    return labels;
}

}  // namespace hierfit::test
