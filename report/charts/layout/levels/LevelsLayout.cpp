#include <algorithm>
#include <utility>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/levels/LevelsMarks.h"
#include "report/charts/layout/levels/LevelsPlan.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::LevelsPicture;
using document::PanelPlace;

namespace {

constexpr double kBelowLegend = 10;
constexpr double kBelowTitle = 8;
constexpr double kAboveTicks = 8;
constexpr double kLeastForLegend = 320;
constexpr double kTall = 600;       // pixels of a plot
constexpr double kTitleSpan = 800;  // a title beside rows of panels stands in the middle of so much of them at most

void Unite(std::vector<PanelPlace>& places) {
    std::ranges::sort(places, {}, [](const PanelPlace& place) { return std::pair(place.fDown, place.fAcross); });
    places.erase(std::unique(places.begin(), places.end()), places.end());
}

/// Each panel that has marks or guides, once; the first one where none has.
std::vector<PanelPlace> PanelsOf(const LevelsPicture& picture) {
    std::vector<PanelPlace> places;
    for (const document::LevelMark& mark : picture.fvMarks) places.push_back(mark.fPanel);
    for (const document::LevelGuide& guide : picture.fvGuides) places.push_back(guide.fPanel);
    if (places.empty()) places.emplace_back();
    Unite(places);
    return places;
}

/// The panels that bear something for those given, each once.
template <typename Bearer>
std::vector<PanelPlace> BearersOf(const std::vector<PanelPlace>& places, const Bearer& bearer) {
    std::vector<PanelPlace> bearers;
    bearers.reserve(places.size());
    for (const PanelPlace& place : places) bearers.push_back(bearer(place));
    Unite(bearers);
    return bearers;
}

double AddLegends(Scene& scene, const LevelsPicture& picture, double content, double width) {
    const Legend legend = LegendOf(picture);
    if (legend.fvEntries.empty()) return 0;
    const double room = std::max(content, std::min(width, kLeastForLegend));
    scene.fWidth = std::max(scene.fWidth, std::min(room, WidthOf(legend)));
    return AddLegend(scene, legend, {}, room) + kBelowLegend;
}

/// The title of levels below each other stands over their words, level.
double AddTitleAbove(Scene& scene, const LevelsPicture& picture, double width, double top) {
    const std::vector<std::string> lines = WrapTitle(picture.fPredictor.fTitle, width);
    if (lines.empty()) return 0;
    Element element;
    AddLines(element, lines, {0, top + Ascent(kAxisTitleStyle)}, kAxisTitleStyle);
    scene.fvElements.push_back(std::move(element));
    return static_cast<double>(lines.size()) * LineHeight(kAxisTitleStyle) + kBelowTitle;
}

/// Who reads the upper levels of many should not have to look for their values' ticks far below.
bool HasTicksAbove(const LevelsPlan& plan) {
    return plan.fAxis.IsTurned() && !plan.fGrid.HasHeadings() && plan.fPlotHeight > kTall;
}

void AddAxes(Scene& scene, LevelsPlan& plan, const std::vector<PanelPlace>& panels) {
    const bool isTurned = plan.fAxis.IsTurned();
    const auto beside = BearersOf(panels, [&](const PanelPlace& of) { return plan.fGrid.FirstOfRow(of); });
    const auto below = BearersOf(panels, [&](const PanelPlace& of) { return plan.fGrid.AxisBelow(of); });
    NameLevels(plan.fAxis, isTurned ? beside.size() : below.size());
    if (HasTicksAbove(plan)) AddTopWords(scene, plan.fValues, plan.fGrid.At({}));
    for (const PanelPlace& place : panels) AddGrid(scene, plan.fValues, plan.fGrid.At(place), isTurned);
    for (const PanelPlace& place : beside) {
        const Frame plot = plan.fGrid.At(place);
        isTurned ? AddLevels(scene, plan.fAxis, plot) : AddLeftAxis(scene, plan.fValues, plot, false);
    }
    for (const PanelPlace& place : below) {
        const Frame plot = plan.fGrid.At(place);
        isTurned ? AddBottomAxis(scene, plan.fValues, plot, false) : AddLevels(scene, plan.fAxis, plot);
    }
    plan.fGrid.AddHeadings(scene, panels);
}

/// The title below all panels, in the middle of them.
void AddTitleBelow(Scene& scene, const LevelsPicture& picture, const LevelsPlan& plan) {
    const double left = plan.fRooms.fLeftOnce;
    const double right = plan.fGrid.PlotsRight();
    const std::string& title = plan.fAxis.IsTurned() ? picture.fValues.fTitle : picture.fPredictor.fTitle;
    const std::vector<std::string> lines = WrapTitle(title, right - left);
    AddBottomTitle(scene, lines, (left + right) / 2, plan.fGrid.Bottom());
    scene.fHeight = plan.fGrid.Bottom() + RoomForTitle(lines);
}

void AddTitleBeside(Scene& scene, const LevelsPlan& plan, double top) {
    const std::vector<std::string>& lines = plan.fValues.fvTitle;
    const double bottom = std::min(plan.fGrid.Bottom() - plan.fRooms.fBelow, top + kTitleSpan);
    AddLeftTitle(scene, lines, (top + bottom) / 2, static_cast<double>(lines.size()) * LineHeight(kAxisTitleStyle));
}

}  // namespace

Scene LayOutContent(const LevelsPicture& picture, double width) {
    LevelsPlan plan = PlanLevels(picture, width);
    const std::vector<PanelPlace> panels = PanelsOf(picture);
    plan.fGrid.Place(0, plan.fPlotWidth, plan.fPlotHeight, plan.fRooms);
    Scene scene;
    scene.fWidth = plan.fGrid.Width();
    double top = AddLegends(scene, picture, plan.fGrid.Width(), width);
    if (plan.fAxis.IsTurned()) top += AddTitleAbove(scene, picture, plan.fGrid.Width(), top);
    if (!plan.fGrid.HasHeadings()) top += plan.fAxis.IsTurned() ? 0 : kAboveTicks;
    if (HasTicksAbove(plan)) top += RoomAbove();
    plan.fGrid.Place(top, plan.fPlotWidth, plan.fPlotHeight, plan.fRooms);
    AddAxes(scene, plan, panels);
    AddTitleBelow(scene, picture, plan);
    if (!plan.fAxis.IsTurned()) AddTitleBeside(scene, plan, plan.fGrid.At({}).fTop);
    const LevelsPlaces places = PlacesOf(picture, plan);
    AddTrends(scene, places);
    AddMarks(scene, places);
    return scene;
}

}  // namespace hierfit::report::charts
