#include "host/chart/view/Drawing.h"
#include "host/chart/view/histogram/Histogram.h"
#include "host/chart/view/network/DiagramLayout.h"
#include "host/chart/view/network/DiagramMarks.h"
#include "host/chart/view/network/ReadDiagram.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

Histogram ReadInset(const Specification& specification) {
    if (!specification.fInset || specification.fInset->fpChart == nullptr) return {};
    const Inset& inset = *specification.fInset;
    const std::vector<VariableSetting> noSettings;
    const ShownData data(*inset.fpChart, inset.fvData, noSettings);
    return ReadHistogram(*inset.fpChart, data, inset.fFieldType);
}

std::vector<std::string> KeepAllBlanks(const std::vector<std::string>& texts) {
    std::vector<std::string> kept;
    kept.reserve(texts.size());
    for (const std::string& text : texts) kept.push_back(KeepBlanks(text));
    return kept;
}

std::vector<LevelTexts> Texts(const Diagram& diagram) {
    std::vector<LevelTexts> texts;
    const auto add = [&texts](std::string_view name, const std::vector<std::string>& words) {
        if (!words.empty()) texts.push_back({name, KeepAllBlanks(words)});
    };
    if (diagram.fvNodes.empty()) return texts;
    add(expression::kWeightNames, diagram.fWeights.fvWords);
    add(expression::kTypeNames, diagram.fTypes.fvWords);
    add(expression::kSignNames, diagram.fSigns.fvWords);
    return texts;
}

/// The nodes, with the columns that say anything.
document::ChartTable ShowNodes(const Diagram& diagram) {
    const std::vector<std::string> titles = {Translated("Node"), diagram.fTypes.fTitle, diagram.fWeights.fTitle,
                                             diagram.fSigns.fTitle};
    std::vector<std::size_t> used = {0};
    for (std::size_t column = 1; column < titles.size(); ++column) {
        if (!titles[column].empty()) used.push_back(column);
    }
    document::ChartTable table;
    table.fKeys = used.size() > 1 ? 1 : 0;
    for (const std::size_t column : used) table.fvColumns.push_back(titles[column]);
    for (const std::vector<std::string>& row : diagram.fvRows) {
        table.fvRows.emplace_back();
        for (const std::size_t column : used) table.fvRows.back().push_back(row[column]);
    }
    return table;
}

/// Empty where widths tell nothing.
std::string WidthSentence(const Diagram& diagram) {
    const DiagramWeights& weights = diagram.fWeights;
    if (diagram.fvLinks.empty() || weights.fTitle.empty()) return {};
    const std::string thinnest = weights.InWords(diagram.fvLinks.back().fWeight);
    const std::string widest = weights.InWords(diagram.fvLinks.front().fWeight);
    if (thinnest == widest) return " " + Translated("Width of the lines: ^1, ^2.", {weights.fTitle, widest});
    return " " + Translated("Width of the lines: ^1, from ^2 to ^3.", {weights.fTitle, thinnest, widest});
}

std::string Sentence(const Specification& specification, const Diagram& diagram, const Histogram& histogram) {
    std::string sentence =
        Translated("Diagram: ^1. Target: ^2. Nodes: ^3.",
                   {TitleInWords(specification), diagram.fTarget.fName, std::to_string(diagram.fvNodes.size())});
    sentence += WidthSentence(diagram);
    if (histogram.fBins.fvBins.empty()) return sentence;
    return sentence + " " + HistogramSentence(histogram);
}

document::ChartShown Show(const Specification& specification, const Diagram& diagram, const Histogram& histogram) {
    document::ChartShown shown{Sentence(specification, diagram, histogram), {}};
    if (!diagram.fvNodes.empty()) shown.fvTables.push_back(ShowNodes(diagram));
    if (!histogram.fBins.fvBins.empty()) shown.fvTables.push_back(ShowBins(histogram));
    return shown;
}

}  // namespace

Drawing MakeDiagramDrawing(const ViewContext& context) {
    Diagram diagram = ReadDiagram(context);
    const Histogram histogram = ReadInset(context.fSpecification);
    if (diagram.fTarget.fName.empty()) diagram.fTarget.fName = CutName(histogram.fLabel);
    if (diagram.fTarget.fTip.empty()) diagram.fTarget.fTip = diagram.fTarget.fName;
    if (diagram.fTarget.fTip.empty()) diagram.fTarget.fTip = Translated("Unknown");  // a mark must have a name
    const bool hasHistogram = !histogram.fBins.fvBins.empty();
    const DiagramLayout layout = LayDiagramOut(context.fSpecification.fPlot, diagram, hasHistogram);
    Json layers = Json::array();
    if (!diagram.fvNodes.empty()) layers.push_back(DiagramMarks(diagram, layout));
    for (Json& layer : TargetBoxLayers(layout.fBox, diagram.fTarget, histogram, layout.fHeight)) {
        layers.push_back(std::move(layer));
    }
    Drawing drawing;
    drawing.fView = {{"width", Rounded(layout.fWidth)},
                     {"height", Rounded(layout.fHeight)},
                     {"layer", std::move(layers)},
                     {"resolve", {{"scale", {{"x", "independent"}, {"y", "independent"}}}}}};
    drawing.fvTexts = Texts(diagram);
    drawing.fWidth = layout.fWidth;
    drawing.fShown = Show(context.fSpecification, diagram, histogram);
    return drawing;
}

}  // namespace hierfit::chart
