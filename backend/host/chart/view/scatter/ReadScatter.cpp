#include "host/chart/view/scatter/ReadScatter.h"

#include <algorithm>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

constexpr double kRoomAtEnds = 0.03;

/// Limits that grow with every number that they must hold.
struct Limits {
    std::optional<double> fLow;
    std::optional<double> fHigh;

    void Hold(std::optional<double> number) {
        if (!number) return;
        fLow = std::min(fLow.value_or(*number), *number);
        fHigh = std::max(fHigh.value_or(*number), *number);
    }

    void Hold(const Span& span) {
        Hold(Placeable(span.fMin));
        Hold(Placeable(span.fMax));
    }

    void Set(ScatterAxis& axis) const {
        if (!fLow) return;
        const double room = *fHigh > *fLow ? (*fHigh - *fLow) * kRoomAtEnds : RoomAbout(*fLow);
        axis.fLow = *fLow - room;
        axis.fHigh = *fHigh + room;
    }
};

void SetLimits(const Plot& plot, Scatter& scatter) {
    Limits x;
    Limits y;
    x.Hold(plot.fX);
    y.Hold(plot.fY);
    for (const ScatterPoint& point : scatter.fvPoints) {
        x.Hold(point.fX);
        y.Hold(point.fY);
    }
    if (plot.fSquare) {
        x.Hold({y.fLow, y.fHigh});
        y = x;
    }
    x.Set(scatter.fX);
    y.Set(scatter.fY);
}

void SetAxis(const Specification& specification, bool isX, const ShownVariable* variable, ScatterAxis& axis) {
    axis.fTitle = AxisTitleOr(specification, isX, variable == nullptr ? std::string() : variable->Label());
    axis.fName = CutName(axis.fTitle);
}

void AddPoints(const ShownVariable* x, const ShownVariable* y, const ShownVariable* frequency, Scatter& scatter) {
    if (x == nullptr || y == nullptr) return;
    for (std::size_t row = 0; row < x->Rows(); ++row) {
        const auto placeX = PlaceableAt(x, row);
        const auto placeY = PlaceableAt(y, row);
        if (!placeX || !placeY) continue;
        const double count = std::max(0.0, PlaceableAt(frequency, row).value_or(1));
        scatter.fvPoints.push_back({*placeX, *placeY, count, x->Figure(*placeX), y->Figure(*placeY),
                                    frequency == nullptr ? std::string() : ShortNumber(count)});
        scatter.fMostFrequent = std::max(scatter.fMostFrequent, count);
    }
    std::stable_sort(scatter.fvPoints.begin(), scatter.fvPoints.end(),
                     [](const ScatterPoint& a, const ScatterPoint& b) { return a.fFrequency < b.fFrequency; });
}

}  // namespace

double ScatterAxis::Place(double number) const { return Rounded(number, fHigh - fLow); }

Scatter ReadScatter(const ViewContext& context) {
    Scatter scatter;
    const Specification& specification = context.fSpecification;
    const Mark* mark = specification.fPlot.Find(Mark::Kind::Points);
    if (mark != nullptr) {
        const ShownVariable* x = context.fData.Find(mark->fSource, mark->fX);
        const ShownVariable* y = context.fData.Find(mark->fSource, mark->fY);
        const ShownVariable* frequency = context.fData.Find(mark->fSource, mark->fOpacity);
        SetAxis(specification, true, x, scatter.fX);
        SetAxis(specification, false, y, scatter.fY);
        if (frequency != nullptr) scatter.fReference = mark->fOpacity;
        if (frequency != nullptr) scatter.fFrequencyTitle = frequency->Name();
        AddPoints(x, y, frequency, scatter);
    }
    SetLimits(specification.fPlot, scatter);
    return scatter;
}

}  // namespace hierfit::chart
