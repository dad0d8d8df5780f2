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

/// Two ticks at least, if there are two whose words stand clear of each other, and none whose words would stand out of
/// the box.
void SettleTicks(NumberAxis& axis, bool isWhole, const Frame& bars, const Frame& box) {
    constexpr int kFew = 3;
    constexpr double kBetween = 8;
    const Scale scale{axis.fDomain, bars.fLeft, bars.fRight};
    const bool isLone = axis.fvTicks.size() < 2;
    if (isLone) axis.fvTicks = TicksOf(axis.fDomain, kFew, isWhole);
    std::erase_if(axis.fvTicks, [&](const Tick& tick) {
        const double half = TextWidth(tick.fWords, kLabelStyle) / 2;
        const double at = scale.At(tick.fNumber);
        return at - half < box.fLeft + 2 || at + half > box.fRight - 2;
    });
    if (!isLone || axis.fvTicks.size() < 2) return;
    const Tick& first = axis.fvTicks.front();
    const Tick& last = axis.fvTicks.back();
    const double half = (TextWidth(first.fWords, kLabelStyle) + TextWidth(last.fWords, kLabelStyle)) / 2;
    const bool isClear = scale.At(last.fNumber) - scale.At(first.fNumber) >= half + kBetween;
    axis.fvTicks.erase(axis.fvTicks.begin() + 1, axis.fvTicks.end() - (isClear ? 1 : 0));
}

void AddBars(Scene& scene, const HistogramPicture& histogram, const TargetBox& box) {
    const double widest = AxisOf(histogram, box.fFrame.Width() - 2 * kMargin).fWidestTick;
    const Frame bars = BarsOf(box, widest);
    NumberAxis values = AxisOf(histogram, bars.Width());
    SettleTicks(values, histogram.fValues.fIsWhole, bars, box.fFrame);
    const Extent counts = DomainOf(histogram.fCounts, CountsOf(histogram));
    AddHistogram(scene, histogram, {values.fDomain, bars.fLeft, bars.fRight}, {counts, bars.fBottom, bars.fTop});
    AddBottomAxis(scene, values, bars, false);
}

/// As wished, or as wide as the name needs to be shown whole.
double WidthWithBars(const std::string& name, double wished, const BoxWidths& widths) {
    constexpr double kStep = 8;
    const double forWord = LongestWord(name, kHeadingStyle) + 2 * kMargin + 1;
    double width = std::clamp(std::max(wished, forWord), widths.fLeast, widths.fMost);
    while (width < widths.fMost &&
           WrapText(name, width - 2 * kMargin, kHeadingStyle, kMostLines + 1).size() > kMostLines) {
        width = std::min(width + kStep, widths.fMost);
    }
    return width;
}

}  // namespace

TargetBox MakeTargetBox(const NetworkPicture& picture, double wished, const BoxWidths& widths) {
    TargetBox box;
    box.fHasHistogram = picture.fHistogram && !picture.fHistogram->fvBins.empty();
    const std::string& name = picture.fTarget.fName;
    const double inner = (box.fHasHistogram ? WidthWithBars(name, wished, widths) : widths.fMost) - 2 * kMargin;
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
