#include "report/charts/layout/diagrams/TargetBox.h"

#include <algorithm>

#include "report/charts/layout/HistogramLayout.h"
#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::HistogramPicture;
using document::NetworkPicture;

namespace {

constexpr double kMargin = 10;
constexpr double kBelowTitle = 8;
constexpr double kShareOfBars = 0.6;  // the height of the histogram, to the box's width
constexpr std::size_t kMostLines = 3;
constexpr double kRound = 4;

double HeightOf(const std::vector<std::string>& title) {
    return static_cast<double>(title.size()) * LineHeight(kHeadingStyle);
}

/// The axis below the histogram, without a title: the box has the target's name.
NumberAxis AxisOf(const HistogramPicture& histogram, double length) {
    const document::PictureAxis axis{{}, histogram.fValues.fLow, histogram.fValues.fHigh, histogram.fValues.fIsWhole};
    return MakeNumberAxis(axis, BinsOf(histogram), length, true, false);
}

/// Where the bars stand in the box, with room for half the words of a tick at either end.
Frame BarsOf(const TargetBox& box, double widestTick) {
    const double side = std::clamp(widestTick / 2, kMargin, box.fFrame.Width() / 4);
    const double top = box.fFrame.fTop + kMargin + (box.fvTitle.empty() ? 0 : HeightOf(box.fvTitle) + kBelowTitle);
    return {box.fFrame.fLeft + side, top, box.fFrame.fRight - side, top + box.fFrame.Width() * kShareOfBars};
}

/// Leaves the ticks out whose words would stand out of the box.
void KeepWithin(NumberAxis& axis, const Frame& bars, const Frame& box) {
    const Scale scale{axis.fDomain, bars.fLeft, bars.fRight};
    std::erase_if(axis.fvTicks, [&](const Tick& tick) {
        const double half = TextWidth(tick.fWords, kLabelStyle) / 2;
        const double at = scale.At(tick.fNumber);
        return at - half < box.fLeft + 2 || at + half > box.fRight - 2;
    });
}

void AddBars(Scene& scene, const HistogramPicture& histogram, const TargetBox& box) {
    const double widest = AxisOf(histogram, box.fFrame.Width() - 2 * kMargin).fWidestTick;
    const Frame bars = BarsOf(box, widest);
    NumberAxis values = AxisOf(histogram, bars.Width());
    KeepWithin(values, bars, box.fFrame);
    const Extent counts = DomainOf(histogram.fCounts, CountsOf(histogram));
    AddHistogram(scene, histogram, {values.fDomain, bars.fLeft, bars.fRight}, {counts, bars.fBottom, bars.fTop});
    AddBottomAxis(scene, values, bars, false);
}

}  // namespace

TargetBox MakeTargetBox(const NetworkPicture& picture, double wished, const BoxWidths& widths) {
    TargetBox box;
    box.fHasHistogram = picture.fHistogram && !picture.fHistogram->fvBins.empty();
    const std::string& name = picture.fTarget.fName;
    const double forWord = LongestWord(name, kHeadingStyle) + 2 * kMargin + 1;
    const double inner =
        (box.fHasHistogram ? std::clamp(std::max(wished, forWord), widths.fLeast, widths.fMost) : widths.fMost) -
        2 * kMargin;
    box.fvTitle = WrapText(name, inner, kHeadingStyle, kMostLines);
    if (box.IsEmpty()) return box;
    box.fFrame.fRight = 2 * kMargin + (box.fHasHistogram ? inner : WidestLine(box.fvTitle, kHeadingStyle));
    if (box.fHasHistogram) {
        box.fFrame.fBottom = BarsOf(box, 0).fBottom + RoomBelow({}, false) + kMargin / 2;
    } else {
        box.fFrame.fBottom = 2 * kMargin + HeightOf(box.fvTitle);
    }
    return box;
}

void AddTargetBox(Scene& scene, const NetworkPicture& picture, const TargetBox& box) {
    if (box.IsEmpty()) return;
    const Frame& frame = box.fFrame;
    Element element;
    element.fTip = picture.fTarget.fTip;
    const Paint paint{.fFill = Ink::Paper, .fStroke = Ink::BoxEdge};
    element.fvShapes.push_back({paint, Rectangle{{frame.fLeft, frame.fTop}, frame.Width(), frame.Height(), kRound}});
    AddLines(element, box.fvTitle, {frame.fLeft + kMargin, frame.fTop + kMargin + Ascent(kHeadingStyle)},
             kHeadingStyle);
    scene.fvElements.push_back(std::move(element));
    if (box.fHasHistogram) AddBars(scene, *picture.fHistogram, box);
}

}  // namespace hierfit::report::charts
