#include "host/chart/view/levels/ValueAxis.h"

#include <algorithm>
#include <cmath>

#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr double kManyDigits = 1e9;

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

/// A format whose figures tell the ticks apart: the variable's, unless its decimals are too few or its digits too many.
std::string FormatOf(const ShownVariable* variable, const Extent& extent) {
    if (variable == nullptr || variable->AxisFormat().empty()) return {};
    const double greatest = std::max(std::abs(extent.fLow), std::abs(extent.fHigh));
    const double step = (extent.fHigh - extent.fLow) / 8;
    const double unit = std::pow(10.0, -variable->Decimals());
    const bool isFine = greatest < kManyDigits && (step == 0 || step >= unit);
    return isFine ? variable->AxisFormat() : ".12~g";
}

}  // namespace

void Extent::Add(double value) {
    fLow = fIsEmpty ? value : std::min(fLow, value);
    fHigh = fIsEmpty ? value : std::max(fHigh, value);
    fIsEmpty = false;
}

Json ScaleWithin(const Span& span, Extent extent) {
    const auto least = Placeable(span.fMin);
    const auto greatest = Placeable(span.fMax);
    if (least) extent.Add(*least);
    if (greatest) extent.Add(*greatest);
    if (extent.fIsEmpty) return {{"domain", {0, 1}}};
    const double low = least.value_or(extent.fLow);
    const double room = RoomAbout(low);
    if (low == greatest.value_or(extent.fHigh)) return {{"domain", {low - room, low + room}}, {"zero", false}};
    Json scale = {{"zero", false}};
    if (least) scale["domainMin"] = *least;
    if (greatest) scale["domainMax"] = *greatest;
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
    axis.fFormat = FormatOf(marks.fpMean, extent);
    axis.fTickCount = length < 200 ? 4 : 6;
    return axis;
}

}  // namespace hierfit::chart
