#include "report/charts/layout/HistogramLayout.h"

#include <algorithm>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/Shapes.h"

namespace hierfit::report::charts {

using document::CurvePoint;
using document::HistogramBin;
using document::HistogramPicture;

namespace {

constexpr double kRoomAbove = 1.04;
constexpr double kMostOverBars = 2;
constexpr std::size_t kMostDots = 80;
constexpr double kNarrowestOutlined = 5;  // pixels: outlines would be most of narrower bars
constexpr double kWidest = 560;
constexpr double kHeight = 280;
constexpr double kAboveTicks = 8;

void AddBars(Scene& scene, const HistogramPicture& picture, const Scale& x, const Scale& y) {
    const double room = kNarrowestOutlined * static_cast<double>(picture.fvBins.size());
    Paint paint{.fFill = Ink::Bar};
    if (x.fEnd - x.fStart >= room) {
        paint.fStroke = Ink::Paper;
        paint.fStrokeWidth = 0.8;
    }
    for (const HistogramBin& bin : picture.fvBins) {
        const double left = x.At(bin.fLow);
        const double top = y.Within(bin.fCount);
        Element bar;
        bar.fTip = bin.fTip;
        bar.fvShapes.push_back({paint, Rectangle{{left, top}, x.At(bin.fHigh) - left, y.fStart - top, 0}});
        scene.fvElements.push_back(std::move(bar));
    }
}

/// A curve that leaves the plot upwards is cut there.
Path PathOf(const HistogramPicture& picture, const Scale& x, const Scale& y) {
    Path path;
    bool isInside = false;
    for (const CurvePoint& point : picture.fvCurve) {
        if (point.fY > y.fDomain.fHigh) {
            if (isInside) path.fvParts.back().push_back({x.At(point.fX), y.fEnd});
            isInside = false;
            continue;
        }
        if (!isInside) path.fvParts.emplace_back();
        isInside = true;
        path.fvParts.back().push_back({x.Within(point.fX), y.At(point.fY)});
    }
    return path;
}

void AddCurve(Scene& scene, const HistogramPicture& picture, const Scale& x, const Scale& y) {
    Element curve;
    curve.fvShapes.push_back({{.fStroke = Ink::Ink, .fStrokeWidth = 1.6}, PathOf(picture, x, y)});
    if (picture.fIsCurveOfCounts && picture.fvCurve.size() <= kMostDots) {
        for (const CurvePoint& point : picture.fvCurve) {
            if (point.fY > y.fDomain.fHigh) continue;
            curve.fvShapes.push_back({{.fFill = Ink::Ink}, Circle{{x.Within(point.fX), y.At(point.fY)}, 2.2}});
        }
    }
    scene.fvElements.push_back(std::move(curve));
}

}  // namespace

Extent BinsOf(const HistogramPicture& picture) {
    if (picture.fvBins.empty()) return {0, 1, false};
    const double room = picture.fvBins.size() == 1 ? picture.fvBins[0].fHigh - picture.fvBins[0].fLow : 0;
    return {picture.fvBins.front().fLow - room, picture.fvBins.back().fHigh + room, false};
}

Extent CountsOf(const HistogramPicture& picture) {
    double bars = 0;
    for (const HistogramBin& bin : picture.fvBins) bars = std::max(bars, bin.fCount);
    double curve = 0;
    for (const CurvePoint& point : picture.fvCurve) curve = std::max(curve, point.fY);
    const double top = std::max(bars, std::min(curve, kMostOverBars * bars)) * kRoomAbove;
    return {0, top > 0 ? top : 1, false};
}

void AddHistogram(Scene& scene, const HistogramPicture& picture, const Scale& x, const Scale& y) {
    AddBars(scene, picture, x, y);
    if (!picture.fvCurve.empty()) AddCurve(scene, picture, x, y);
}

Scene LayOutContent(const HistogramPicture& picture, double width) {
    const NumberAxis counts = MakeNumberAxis(picture.fCounts, CountsOf(picture), kHeight, false, false);
    Frame plot{RoomOnTheLeft(counts, true), kAboveTicks, std::min(width, kWidest), kAboveTicks + kHeight};
    const NumberAxis values = MakeNumberAxis(picture.fValues, BinsOf(picture), plot.Width(), true, false);
    Scene scene{plot.fRight, plot.fBottom + RoomBelow(values, true), {}};
    AddGrid(scene, counts, plot, false);
    AddHistogram(scene, picture, {values.fDomain, plot.fLeft, plot.fRight}, {counts.fDomain, plot.fBottom, plot.fTop});
    AddLeftAxis(scene, counts, plot, true);
    AddBottomAxis(scene, values, plot, true);
    return scene;
}

}  // namespace hierfit::report::charts
