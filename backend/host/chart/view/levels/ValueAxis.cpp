#include "host/chart/view/levels/ValueAxis.h"

#include <algorithm>
#include <cmath>

#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

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

}  // namespace

void Extent::Add(double value) {
    fLow = fIsEmpty ? value : std::min(fLow, value);
    fHigh = fIsEmpty ? value : std::max(fHigh, value);
    fIsEmpty = false;
}

Extent DomainWithin(const Span& span, Extent extent) {
    const auto least = Placeable(span.fMin);
    const auto greatest = Placeable(span.fMax);
    if (least) extent.Add(*least);
    if (greatest) extent.Add(*greatest);
    return {least.value_or(extent.fLow), greatest.value_or(extent.fHigh), extent.fIsEmpty};
}

Json ScaleWithin(const Span& span, const Extent& domain, int tickCount) {
    if (domain.fIsEmpty) return {{"domain", {0, 1}}};
    if (domain.fLow == domain.fHigh) {
        const double room = RoomAbout(domain.fLow);
        return {{"domain", {domain.fLow - room, domain.fLow + room}}, {"zero", false}};
    }
    const auto least = Placeable(span.fMin);
    const auto greatest = Placeable(span.fMax);
    Json scale = {{"zero", false}};
    if (least) scale["domainMin"] = *least;
    if (greatest) scale["domainMax"] = *greatest;
    if (!least && !greatest) scale["nice"] = tickCount;
    return scale;
}

Json ValueAxis::Channel(std::string_view field) const {
    const Json axis = {
        {"grid", true}, {"domain", false}, {"ticks", false}, {"tickCount", fTickCount}, {"format", fFormat}};
    return {{"field", field}, {"type", "quantitative"}, {"title", fvTitle}, {"scale", fScale}, {"axis", axis}};
}

ValueAxis MakeValueAxis(const ViewContext& context, const LevelsMarks& marks, const LevelsItems& items,
                        const std::vector<PanelGuide>& guides, double length) {
    const Span& span = context.fSpecification.fPlot.fY;
    const Extent domain = DomainWithin(span, ExtentOf(items, guides));
    ValueAxis axis;
    axis.fvTitle = WrapText(marks.fMeanTitle, length, {12.5, false}, 3);
    axis.fTickCount = length < 200 ? 4 : 6;
    axis.fScale = ScaleWithin(span, domain, axis.fTickCount);
    axis.fFormat = TickFormat(domain.fLow, domain.fHigh, axis.fTickCount);
    return axis;
}

}  // namespace hierfit::chart
