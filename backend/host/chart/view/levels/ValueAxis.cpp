#include "host/chart/view/levels/ValueAxis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr double kManyDigits = 1e9;
constexpr int kMostDecimals = 9;
constexpr double kRounding = 1e-9;  // of a logarithm that is whole
constexpr const char* kBrief = ".12~g";

Extent ExtentOf(const LevelsItems& items, const std::vector<PanelGuide>& guides) {
    Extent extent;
    for (const LevelsItem& item : items.fvItems) {
        extent.Add(item.fMean);
        if (item.fBase) extent.Add(*item.fBase);
        if (!item.fRange) continue;
        extent.Add(item.fRange->fLow);
        extent.Add(item.fRange->fHigh);
    }
    for (const PanelGuide& guide : guides) extent.Add(guide.fHeight);
    return extent;
}

Extent ExtentWithin(const Span& span, Extent extent) {
    const auto least = Placeable(span.fMin);
    const auto greatest = Placeable(span.fMax);
    if (least) extent.Add(*least);
    if (greatest) extent.Add(*greatest);
    return {least.value_or(extent.fLow), greatest.value_or(extent.fHigh), extent.fIsEmpty};
}

/// The distance between ticks of a linear scale, 1, 2 or 5 times a power of ten; a scale that is rounded outwards has
/// no closer ones.
double TickStep(double span, int count) {
    const double rough = span / count;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double error = rough / power;
    if (error >= std::sqrt(50.0)) return 10 * power;
    if (error >= std::sqrt(10.0)) return 5 * power;
    return error >= std::sqrt(2.0) ? 2 * power : power;
}

int DecimalsOf(double step) { return std::max(0, -static_cast<int>(std::floor(std::log10(step) + kRounding))); }

/// A format whose figures tell the ticks apart and have decimals in common: the variable's, unless its decimals are too
/// few or its digits too many.
std::string FormatOf(const ShownVariable* variable, const Extent& extent, int tickCount) {
    if (variable == nullptr || variable->AxisFormat().empty()) return {};
    const double span = extent.fHigh - extent.fLow;
    const double greatest = std::max(std::abs(extent.fLow), std::abs(extent.fHigh));
    if (greatest >= kManyDigits) return kBrief;
    if (span == 0) return variable->AxisFormat();
    const int decimals = DecimalsOf(TickStep(span, tickCount));
    if (decimals <= variable->Decimals()) return variable->AxisFormat();
    return decimals <= kMostDecimals ? fmt::format(".{}f", decimals) : kBrief;
}

}  // namespace

void Extent::Add(double value) {
    fLow = fIsEmpty ? value : std::min(fLow, value);
    fHigh = fIsEmpty ? value : std::max(fHigh, value);
    fIsEmpty = false;
}

Json ScaleWithin(const Span& span, const Extent& extent) {
    const Extent domain = ExtentWithin(span, extent);
    if (domain.fIsEmpty) return {{"domain", {0, 1}}};
    const double room = RoomAbout(domain.fLow);
    if (domain.fLow == domain.fHigh) {
        return {{"domain", {domain.fLow - room, domain.fLow + room}}, {"zero", false}};
    }
    Json scale = {{"zero", false}};
    if (const auto least = Placeable(span.fMin)) scale["domainMin"] = *least;
    if (const auto greatest = Placeable(span.fMax)) scale["domainMax"] = *greatest;
    return scale;
}

Json ValueAxis::Channel(std::string_view field) const {
    Json axis = {{"grid", true}, {"domain", false}, {"ticks", false}, {"tickCount", fTickCount}};
    if (!fFormat.empty()) axis["format"] = fFormat;
    return {{"field", field}, {"type", "quantitative"}, {"title", fvTitle}, {"scale", fScale}, {"axis", axis}};
}

ValueAxis MakeValueAxis(const ViewContext& context, const LevelsMarks& marks, const LevelsItems& items,
                        const std::vector<PanelGuide>& guides, double length) {
    const Extent extent = ExtentOf(items, guides);
    ValueAxis axis;
    axis.fvTitle = WrapText(marks.fMeanTitle, length, {12.5, false}, 3);
    axis.fScale = ScaleWithin(context.fSpecification.fPlot.fY, extent);
    axis.fTickCount = length < 200 ? 4 : 6;
    axis.fFormat = FormatOf(marks.fpMean, ExtentWithin(context.fSpecification.fPlot.fY, extent), axis.fTickCount);
    return axis;
}

}  // namespace hierfit::chart
