#include "report/charts/layout/Axes.h"

#include <algorithm>
#include <cmath>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

constexpr double kTickGap = 7;     // between the plot and the words of a tick
constexpr double kTickLength = 4;  // of the marks below a plot
constexpr double kTitleGap = 8;    // between the words of ticks and the title
constexpr double kBetweenWords = 14;
constexpr double kUprightStep = 46;  // pixels to a tick, about
constexpr double kLevelStep = 66;
constexpr std::size_t kTitleLines = 3;
constexpr Paint kGridPaint{.fStroke = Ink::Grid};
constexpr Paint kAxisPaint{.fStroke = Ink::Axis};

double WidestOf(const std::vector<Tick>& ticks) {
    double widest = 0;
    for (const Tick& tick : ticks) widest = std::max(widest, TextWidth(tick.fWords, kLabelStyle));
    return widest;
}

int StepsIn(double length, double step) { return std::clamp(static_cast<int>(length / step), 2, 10); }

/// Whether words of that width stand clear of each other below the plot.
bool IsClear(const NumberAxis& axis, double length) {
    if (axis.fvTicks.size() < 2) return true;
    const double step = (axis.fvTicks[1].fNumber - axis.fvTicks[0].fNumber) / axis.fDomain.Length() * length;
    return axis.fWidestTick + kBetweenWords <= step;
}

/// So many steps make ticks of the distance that the domain was rounded to, so that ticks stand at its ends.
int StepsAcross(const Extent& domain, double step, int count) {
    return std::clamp(static_cast<int>(std::lround(std::min(domain.Length() / step, 1000.0))), 1, 2 * count);
}

void SetTicks(const document::PictureAxis& axis, const Extent& extent, int count, bool isNice, NumberAxis& made) {
    made.fDomain = isNice ? NiceDomainOf(axis, extent, count) : DomainOf(axis, extent);
    if (isNice)
        count = StepsAcross(made.fDomain, TickStep(DomainOf(axis, extent).Length(), count, axis.fIsWhole), count);
    made.fvTicks = TicksOf(made.fDomain, count, axis.fIsWhole);
    made.fWidestTick = WidestOf(made.fvTicks);
}

/// The baseline of words that stand level with a line.
double BaselineAt(double middle) { return middle + kLabelStyle.fSize * 0.35; }

}  // namespace

std::vector<std::string> WrapTitle(const std::string& title, double length) {
    std::vector<std::string> lines = WrapText(title, length, kAxisTitleStyle, kTitleLines);
    if (lines.size() < 2) return lines;
    double least = length / 2;
    for (double most = length; most - least > 1;) {
        const double middle = (least + most) / 2;
        const std::vector<std::string> narrower = WrapText(title, middle, kAxisTitleStyle, kTitleLines + 1);
        const bool doesFit = narrower.size() <= lines.size();
        if (doesFit) lines = narrower;
        (doesFit ? most : least) = middle;
    }
    return lines;
}

NumberAxis MakeNumberAxis(const document::PictureAxis& axis, const Extent& extent, double length, bool isLevel,
                          bool isNice) {
    NumberAxis made;
    made.fvTitle = WrapTitle(axis.fTitle, length);
    int count = StepsIn(length, isLevel ? kLevelStep : kUprightStep);
    SetTicks(axis, extent, count, isNice, made);
    while (isLevel && count > 1 && !IsClear(made, length)) SetTicks(axis, extent, --count, isNice, made);
    return made;
}

double RoomForTitle(const std::vector<std::string>& lines) {
    return lines.empty() ? 0 : kTitleGap + static_cast<double>(lines.size()) * LineHeight(kAxisTitleStyle);
}

double RoomOnTheLeft(const NumberAxis& axis, bool hasTitle) {
    return axis.fWidestTick + kTickGap + (hasTitle ? RoomForTitle(axis.fvTitle) : 0);
}

double RoomBelow(const NumberAxis& axis, bool hasTitle) {
    return kTickGap + LineHeight(kLabelStyle) + (hasTitle ? RoomForTitle(axis.fvTitle) : 0);
}

void AddGrid(Scene& scene, const NumberAxis& axis, const Frame& plot, bool isLevel) {
    Element grid;
    const Scale scale =
        isLevel ? Scale{axis.fDomain, plot.fLeft, plot.fRight} : Scale{axis.fDomain, plot.fBottom, plot.fTop};
    for (const Tick& tick : axis.fvTicks) {
        const double at = scale.At(tick.fNumber);
        grid.fvShapes.push_back(isLevel ? MakeLine({at, plot.fTop}, {at, plot.fBottom}, kGridPaint)
                                        : MakeLine({plot.fLeft, at}, {plot.fRight, at}, kGridPaint));
    }
    scene.fvElements.push_back(std::move(grid));
}

void AddLeftTitle(Scene& scene, const std::vector<std::string>& lines, double middle, double right) {
    Element element;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const double fromRight = static_cast<double>(lines.size() - 1 - line) * LineHeight(kAxisTitleStyle);
        Shape shape = MakeText(lines[line], {right - Descent(kAxisTitleStyle) - fromRight, middle}, kAxisTitleStyle,
                               Anchor::Middle);
        std::get<Text>(shape.fForm).fTurn = -90;
        element.fvShapes.push_back(std::move(shape));
    }
    scene.fvElements.push_back(std::move(element));
}

void AddBottomTitle(Scene& scene, const std::vector<std::string>& lines, double middle, double top) {
    Element element;
    AddLines(element, lines, {middle, top + kTitleGap + Ascent(kAxisTitleStyle)}, kAxisTitleStyle, Anchor::Middle);
    scene.fvElements.push_back(std::move(element));
}

void AddLeftAxis(Scene& scene, const NumberAxis& axis, const Frame& plot, bool hasTitle) {
    const Scale scale{axis.fDomain, plot.fBottom, plot.fTop};
    Element words;
    for (const Tick& tick : axis.fvTicks) {
        words.fvShapes.push_back(MakeText(tick.fWords, {plot.fLeft - kTickGap, BaselineAt(scale.At(tick.fNumber))},
                                          kLabelStyle, Anchor::End));
    }
    scene.fvElements.push_back(std::move(words));
    if (!hasTitle) return;
    AddLeftTitle(scene, axis.fvTitle, (plot.fTop + plot.fBottom) / 2,
                 plot.fLeft - kTickGap - axis.fWidestTick - kTitleGap);
}

double RoomAbove() { return kTickGap + LineHeight(kLabelStyle); }

void AddTopWords(Scene& scene, const NumberAxis& axis, const Frame& plot) {
    const Scale scale{axis.fDomain, plot.fLeft, plot.fRight};
    Element words;
    for (const Tick& tick : axis.fvTicks) {
        const Point at{scale.At(tick.fNumber), plot.fTop - kTickGap - Descent(kLabelStyle)};
        words.fvShapes.push_back(MakeText(tick.fWords, at, kLabelStyle, Anchor::Middle));
    }
    scene.fvElements.push_back(std::move(words));
}

void AddBottomAxis(Scene& scene, const NumberAxis& axis, const Frame& plot, bool hasTitle) {
    const Scale scale{axis.fDomain, plot.fLeft, plot.fRight};
    Element lines;
    Element words;
    lines.fvShapes.push_back(MakeLine({plot.fLeft, plot.fBottom}, {plot.fRight, plot.fBottom}, kAxisPaint));
    for (const Tick& tick : axis.fvTicks) {
        const double at = scale.At(tick.fNumber);
        lines.fvShapes.push_back(MakeLine({at, plot.fBottom}, {at, plot.fBottom + kTickLength}, kAxisPaint));
        words.fvShapes.push_back(
            MakeText(tick.fWords, {at, plot.fBottom + kTickGap + Ascent(kLabelStyle)}, kLabelStyle, Anchor::Middle));
    }
    scene.fvElements.push_back(std::move(lines));
    scene.fvElements.push_back(std::move(words));
    if (!hasTitle) return;
    AddBottomTitle(scene, axis.fvTitle, (plot.fLeft + plot.fRight) / 2,
                   plot.fBottom + kTickGap + LineHeight(kLabelStyle));
}

}  // namespace hierfit::report::charts
