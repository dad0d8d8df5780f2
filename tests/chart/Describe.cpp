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

template <typename Value>
std::string Given(const char* name, const std::optional<Value>& value) {
    return value ? fmt::format(" {}={}", name, *value) : std::string();
}

std::string Given(const char* name, const Words& words) {
    return Given(name, words.fText) + Given("lookup", words.fLookup);
}

std::string Line(const std::string& name, const std::optional<Words>& words) {
    return words ? name + Given("words", *words) + "\n" : std::string();
}

std::string LineOf(const Plot& plot) {
    return fmt::format("plot {}{}{} margin={}", static_cast<int>(plot.fArrange), plot.fPairs ? " pairs" : "",
                       plot.fSquare ? " square" : "", plot.fMarginBottom) +
           Given("id", plot.fId) + Given("width", plot.fWidthPercent) + Given("x>", plot.fX.fMin) +
           Given("x<", plot.fX.fMax) + Given("y>", plot.fY.fMin) + Given("y<", plot.fY.fMax) +
           Given("color", plot.fColor) + (plot.fHasDiagonal ? " diagonal\n" : "\n");
}

std::string LineOf(const Mark& mark) {
    return fmt::format("mark {}", static_cast<int>(mark.fKind)) + Given("source", mark.fSource) + Given("x", mark.fX) +
           Given("y", mark.fY) + Given("x2", mark.fX2) + Given("y2", mark.fY2) + Given("of", mark.fOf) +
           Given("node", mark.fNode) + Given("from", mark.fFrom) + Given("to", mark.fTo) + Given("shape", mark.fShape) +
           Given("opacity", mark.fOpacity) + Given("weight", mark.fWeight) + Given("sign", mark.fSign) +
           Given("mark", mark.fMark) + Given("text", mark.fText) + Given("beside", mark.fBeside) +
           Given("tip", mark.fTip) + "\n";
}

std::string LinesOf(const Legend& legend) {
    std::string lines = "legend" + Given("id", legend.fId) + (legend.fIsVisible ? "" : " hidden") +
                        Given("of", legend.fOf) + Given("high", legend.fHigh) + Given("low", legend.fLow) + "\n" +
                        Line("heading", legend.fHeading);
    for (const auto& [value, words] : legend.fvEntries) lines += Line("entry " + value, words);
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

std::string LineOf(const Bars& bars) {
    return "bars" + Given("source", bars.fSource) + Given("x", bars.fX) + Given("y", bars.fY) +
           Given("bins", bars.fBinCount) + "\n";
}

std::string LineOf(const Curve& curve) {
    return "curve " + curve.fDistribution + Given("first", curve.fParameter) +
           Given("second", curve.fSecondaryParameter) + "\n";
}

/// All that a specification holds, one thing a line; what is not given is left out.
std::string Describe(const Specification& specification) {
    const Plot& plot = specification.fPlot;
    std::string text = "chart" + Given("template", specification.fTemplate) + "\n" + LineOf(plot);
    for (const Mark& mark : plot.fvMarks) text += LineOf(mark);
    if (plot.fBars) text += LineOf(*plot.fBars);
    if (plot.fCurve) text += LineOf(*plot.fCurve);
    for (const auto& [y, unless] : plot.fvLineGuides) text += fmt::format("guide {} unless {}\n", y, unless);
    if (specification.fFaceting) text += LineOf(*specification.fFaceting);
    for (const Legend& legend : specification.fvLegends) text += LinesOf(legend);
    text += Line("title", specification.fTitle) + Line("subtitle", specification.fSubtitle) +
            Line("caption", specification.fCaption) + Line("footnote", specification.fFootnote);
    for (const auto& [isX, words] : specification.fvAxisTitles) text += Line(isX ? "x title" : "y title", words);
    for (const auto& [of, words] : specification.fvPopups) text += Line("popup " + of, words);
    for (const Field& field : specification.fvFields) text += LineOf(field);
    if (!specification.fInset) return text;
    const auto& [at, type, chart, data] = *specification.fInset;
    return text + fmt::format("inset at={} type={} sources={} (\n{})\n", at, type, data.size(), Describe(*chart));
}

}  // namespace

std::string DescribeXml(const std::string& xml) {
    const auto result = ReadSpecification(xml);
    if (const auto* unreadable = std::get_if<Unreadable>(&result)) return "unreadable: " + unreadable->fReason;
    const auto& [specification, remarks] = std::get<Reading>(result);
    std::string text = Describe(specification);
    for (const std::string& remark : remarks) text += "remark: " + remark + "\n";
    return text;
}

}  // namespace hierfit::test
