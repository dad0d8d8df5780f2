#include "tests/chart/Describe.h"

#include <fmt/format.h>

#include "host/chart/specification/ReadSpecification.h"
#include "host/data/PrintFormat.h"

namespace hierfit::test {

namespace {

using namespace chart;

std::string Given(const char* name, const std::string& value) {
    return value.empty() ? std::string() : fmt::format(" {}={}", name, value);
}

std::string Given(const char* name, const std::optional<double>& value) {
    return value ? fmt::format(" {}={}", name, *value) : std::string();
}

std::string Given(const char* name, const Words& words) {
    return Given(name, words.fText) + Given("lookup", words.fLookup);
}

std::string Line(const char* name, const std::optional<Words>& words) {
    return words ? name + Given("words", *words) + "\n" : std::string();
}

std::string LineOf(const Plot& plot) {
    return fmt::format("plot {}{}{} margin={}{}{}", static_cast<int>(plot.fArrange), plot.fPairs ? " pairs" : "",
                       plot.fSquare ? " square" : "", plot.fMarginBottom, Given("id", plot.fId),
                       plot.fWidthPercent ? fmt::format(" width={}", *plot.fWidthPercent) : "") +
           Given("x>", plot.fX.fMin) + Given("x<", plot.fX.fMax) + Given("y>", plot.fY.fMin) +
           Given("y<", plot.fY.fMax) + Given("color", plot.fColor) + (plot.fHasDiagonal ? " diagonal\n" : "\n");
}

std::string LineOf(const Mark& mark) {
    constexpr std::pair<const char*, std::string Mark::*> kReferences[] = {{"source", &Mark::fSource},
                                                                           {"x", &Mark::fX},
                                                                           {"y", &Mark::fY},
                                                                           {"x2", &Mark::fX2},
                                                                           {"y2", &Mark::fY2},
                                                                           {"of", &Mark::fOf},
                                                                           {"node", &Mark::fNode},
                                                                           {"from", &Mark::fFrom},
                                                                           {"to", &Mark::fTo},
                                                                           {"shape", &Mark::fShape},
                                                                           {"opacity", &Mark::fOpacity},
                                                                           {"weight", &Mark::fWeight},
                                                                           {"sign", &Mark::fSign},
                                                                           {"mark", &Mark::fMark},
                                                                           {"text", &Mark::fText},
                                                                           {"beside", &Mark::fBeside},
                                                                           {"tip", &Mark::fTip}};
    std::string line = fmt::format("mark {}", static_cast<int>(mark.fKind));
    for (const auto& [name, member] : kReferences) line += Given(name, mark.*member);
    return line + "\n";
}

std::string LinesOf(const Legend& legend) {
    std::string lines = "legend" + Given("id", legend.fId) + (legend.fIsVisible ? "" : " hidden") +
                        Given("of", legend.fOf) + Given("high", legend.fHigh) + Given("low", legend.fLow) + "\n" +
                        Line("heading", legend.fHeading);
    for (const auto& [value, words] : legend.fvEntries) lines += "entry " + value + Given("words", words) + "\n";
    return lines;
}

std::string LineOf(const Faceting& faceting) {
    std::string line = fmt::format("panels wrap={}", faceting.fWrap);
    for (const std::string& variable : faceting.fvVariables) line += " " + variable;
    for (const bool isColumns : faceting.fvAlongColumns) line += isColumns ? " columns" : " rows";
    return line + "\n";
}

std::string LineOf(const Field& field) {
    return "field" + Given("slot", field.fSlot) + Given("name", field.fName) + Given("source", field.fSource) +
           (field.fIsFactor ? " factor" : "") + Given("title", field.fTitle) + Given("label", field.fLabel) +
           Given("format", field.fFormat ? data::PrintFormatText(*field.fFormat) : "") + "\n";
}

std::string LinesOf(const Inset& inset) {
    return fmt::format("inset at={} type={} sources={} (\n{})\n", inset.fAt, inset.fFieldType, inset.fvData.size(),
                       Describe(*inset.fpChart));
}

std::string LinesOfBars(const Plot& plot) {
    std::string lines;
    if (plot.fBars) {
        lines += "bars" + Given("source", plot.fBars->fSource) + Given("x", plot.fBars->fX) +
                 Given("y", plot.fBars->fY) +
                 (plot.fBars->fBinCount ? fmt::format(" bins={}", *plot.fBars->fBinCount) : "") + "\n";
    }
    if (plot.fCurve) {
        lines += "curve " + plot.fCurve->fDistribution + Given("first", plot.fCurve->fParameter) +
                 Given("second", plot.fCurve->fSecondaryParameter) + "\n";
    }
    return lines;
}

}  // namespace

std::string Describe(const Specification& specification) {
    const Plot& plot = specification.fPlot;
    std::string text = "chart" + Given("template", specification.fTemplate) + "\n" + LineOf(plot);
    for (const Mark& mark : plot.fvMarks) text += LineOf(mark);
    text += LinesOfBars(plot);
    for (const LineGuide& guide : plot.fvLineGuides)
        text += fmt::format("guide {} unless {}\n", guide.fY, guide.fUnless);
    if (specification.fFaceting) text += LineOf(*specification.fFaceting);
    for (const Legend& legend : specification.fvLegends) text += LinesOf(legend);
    text += Line("title", specification.fTitle) + Line("subtitle", specification.fSubtitle) +
            Line("caption", specification.fCaption) + Line("footnote", specification.fFootnote);
    for (const AxisTitle& title : specification.fvAxisTitles) {
        text += Line(title.fIsX ? "x title" : "y title", title.fWords);
    }
    for (const Popup& popup : specification.fvPopups)
        text += "popup " + popup.fOf + Given("words", popup.fWords) + "\n";
    for (const Field& field : specification.fvFields) text += LineOf(field);
    return specification.fInset ? text + LinesOf(*specification.fInset) : text;
}

std::string DescribeXml(const std::string& xml) {
    const auto result = ReadSpecification(xml);
    if (const auto* unreadable = std::get_if<Unreadable>(&result)) return "unreadable: " + unreadable->fReason;
    const auto& [specification, remarks] = std::get<Reading>(result);
    std::string text = Describe(specification);
    for (const std::string& remark : remarks) text += "remark: " + remark + "\n";
    return text;
}

}  // namespace hierfit::test
