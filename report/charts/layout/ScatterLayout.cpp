#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "report/charts/layout/Axes.h"
#include "report/charts/layout/Content.h"
#include "report/charts/layout/Legend.h"
#include "report/charts/layout/Shapes.h"

namespace hierfit::report::charts {

using document::ScatterPicture;
using document::ScatterPoint;

namespace {

constexpr double kRoomAtEnds = 0.03;  // of an axis, beyond the outermost points
constexpr double kSquare = 460;
constexpr double kWide = 640;
constexpr double kFlat = 0.6;  // the height of a plot that is not square, to its width
constexpr double kRadius = 4.5;
constexpr double kPalest = 0.3;
constexpr double kAlone = 0.7;  // the opacity of points without frequencies
constexpr int kShades = 20;     // of opacity: more would not be told apart
constexpr int kLegendSteps = 4;
constexpr double kBelowLegend = 10;
constexpr double kAboveTicks = 8;
constexpr double kForWords = 14;  // half the last tick's words stand beyond the plot

struct Reach {
    Extent fX;
    Extent fY;
};

Extent WithRoom(Extent extent) {
    if (extent.fIsEmpty) return extent;
    const double room = extent.Length() * kRoomAtEnds;
    return {extent.fLow - room, extent.fHigh + room, false};
}

Reach ReachOf(const ScatterPicture& picture) {
    Reach reach;
    for (const auto& [axis, extent] : {std::pair(&picture.fX, &reach.fX), std::pair(&picture.fY, &reach.fY)}) {
        if (axis->fLow) extent->Add(*axis->fLow);
        if (axis->fHigh) extent->Add(*axis->fHigh);
    }
    for (const ScatterPoint& point : picture.fvPoints) {
        reach.fX.Add(point.fX);
        reach.fY.Add(point.fY);
    }
    if (picture.fIsSquare) {
        reach.fX.Add(reach.fY);
        reach.fY = reach.fX;
    }
    return {WithRoom(reach.fX), WithRoom(reach.fY)};
}

double MostFrequent(const ScatterPicture& picture) {
    double most = 2;
    for (const ScatterPoint& point : picture.fvPoints) most = std::max(most, point.fFrequency);
    return most;
}

/// In steps, so that points of one shade are painted together.
double OpacityOf(double frequency, double most) {
    const double shade = std::round(std::min(frequency / most, 1.0) * kShades) / kShades;
    return kPalest + (1 - kPalest) * shade;
}

Paint PaintOf(const ScatterPicture& picture, double frequency, double most) {
    const double opacity = picture.fHasFrequencies ? OpacityOf(frequency, most) : kAlone;
    return {.fFill = Ink::Level, .fOpacity = opacity};
}

/// A few frequencies from 1 to the most frequent, a whole and even step apart.
std::vector<double> LegendFrequencies(const ScatterPicture& picture) {
    double most = 0;
    for (const ScatterPoint& point : picture.fvPoints) most = std::max(most, point.fFrequency);
    const double step = std::max(1.0, std::ceil(most / kLegendSteps));
    std::vector<double> frequencies;
    if (step > 1) frequencies.push_back(1);
    for (int at = 1; at <= kLegendSteps && step * at <= most; ++at) frequencies.push_back(step * at);
    return frequencies;
}

double AddFrequencies(Scene& scene, const ScatterPicture& picture, double width) {
    if (!picture.fHasLegend || picture.fvPoints.empty()) return 0;
    Legend legend{picture.fFrequencyTitle, {}, 2 * kRadius};
    const double most = MostFrequent(picture);
    for (const double frequency : LegendFrequencies(picture)) {
        const Shape swatch = MakeSymbol(Symbol::Circle, {}, kRadius, PaintOf(picture, frequency, most));
        legend.fvEntries.push_back({fmt::format("{:.12g}", frequency), {swatch}, -1});
    }
    return AddLegend(scene, legend, {}, width) + kBelowLegend;
}

/// Of a crowd the most frequent come last: they lie on top, and points of one shade stand side by side.
std::vector<const ScatterPoint*> OrderOf(const ScatterPicture& picture) {
    std::vector<const ScatterPoint*> points;
    points.reserve(picture.fvPoints.size());
    for (const ScatterPoint& point : picture.fvPoints) points.push_back(&point);
    if (points.size() > kMostInFull) std::ranges::stable_sort(points, {}, &ScatterPoint::fFrequency);
    return points;
}

void AddPoints(Scene& scene, const ScatterPicture& picture, const Scale& x, const Scale& y) {
    const double most = MostFrequent(picture);
    for (const ScatterPoint* point : OrderOf(picture)) {
        Element element;
        element.fTip = point->fTip;
        element.fvShapes.push_back(MakeSymbol(Symbol::Circle, {x.At(point->fX), y.At(point->fY)}, kRadius,
                                              PaintOf(picture, point->fFrequency, most)));
        scene.fvElements.push_back(std::move(element));
    }
}

/// The line on which both axes agree, as far as both reach.
void AddDiagonal(Scene& scene, const Scale& x, const Scale& y) {
    const double low = std::max(x.fDomain.fLow, y.fDomain.fLow);
    const double high = std::min(x.fDomain.fHigh, y.fDomain.fHigh);
    if (low >= high) return;
    const Paint paint{.fStroke = Ink::Soft, .fStrokeWidth = 1.2, .fDash = Dash::Short};
    scene.fvElements.push_back({{MakeLine({x.At(low), y.At(low)}, {x.At(high), y.At(high)}, paint)}, {}, {}, false});
}

document::PictureAxis TitleOf(const document::PictureAxis& axis) { return {axis.fTitle, {}, {}, axis.fIsWhole}; }

}  // namespace

Scene LayOutContent(const ScatterPicture& picture, double width) {
    const Reach reach = ReachOf(picture);
    Scene scene;
    const double top = AddFrequencies(scene, picture, width) + kAboveTicks;
    const double height = picture.fIsSquare ? std::min(width, kSquare) : std::min(width, kWide) * kFlat;
    NumberAxis y = MakeNumberAxis(TitleOf(picture.fY), reach.fY, height, false, false);
    const double left = RoomOnTheLeft(y, true);
    const double across = std::min(width - left - kForWords, picture.fIsSquare ? kSquare : kWide);
    const double upright = picture.fIsSquare ? across : across * kFlat;
    const Frame plot{left, top, left + across, top + upright};
    const NumberAxis x = MakeNumberAxis(TitleOf(picture.fX), reach.fX, across, true, false);
    // Axes that are alike have the same ticks.
    y = MakeNumberAxis(TitleOf(picture.fY), reach.fY, upright, picture.fIsSquare, false);
    AddGrid(scene, y, plot, false);
    AddGrid(scene, x, plot, true);
    const Scale scaleX{x.fDomain, plot.fLeft, plot.fRight};
    const Scale scaleY{y.fDomain, plot.fBottom, plot.fTop};
    if (picture.fHasDiagonal) AddDiagonal(scene, scaleX, scaleY);
    AddPoints(scene, picture, scaleX, scaleY);
    AddLeftAxis(scene, y, plot, true);
    AddBottomAxis(scene, x, plot, true);
    scene.fWidth = plot.fRight + kForWords;
    scene.fHeight = plot.fBottom + RoomBelow(x, true);
    return scene;
}

}  // namespace hierfit::report::charts
