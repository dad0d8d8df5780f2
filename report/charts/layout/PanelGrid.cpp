#include "report/charts/layout/PanelGrid.h"

#include <algorithm>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::PanelPlace;

namespace {

constexpr int kMostAbreast = 3;
constexpr double kGap = 18;
constexpr double kHeadingGap = 6;
constexpr double kFilledLines = 0.85;  // of the room of headings in lines

int CountOf(const std::vector<std::string>& headings) { return std::max(static_cast<int>(headings.size()), 1); }

int FittingInto(double width, double leastWidth) {
    return std::clamp(static_cast<int>((width + kGap) / (leastWidth + kGap)), 1, 1000);
}

/// Each number once, ascending.
template <typename Numbers>
void Unite(Numbers& numbers) {
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

}  // namespace

PanelGrid::PanelGrid(const document::PicturePanels& panels, double width, double leastWidth) : fpPanels(&panels) {
    const int fitting = FittingInto(width, leastWidth);
    const bool isList = panels.fvDown.empty() || CountOf(panels.fvAcross) > fitting;
    SetColumns(isList ? std::min(MostAbreast(panels), fitting) : CountOf(panels.fvAcross));
}

PanelGrid PanelGrid::OfColumns(const document::PicturePanels& panels, int columns) {
    PanelGrid grid(panels);
    grid.SetColumns(columns);
    return grid;
}

int PanelGrid::MostAbreast(const document::PicturePanels& panels) {
    const long count = static_cast<long>(CountOf(panels.fvAcross)) * CountOf(panels.fvDown);
    const long most = panels.fAbreast > 0 ? std::min(panels.fAbreast, kMostAbreast) : kMostAbreast;
    return static_cast<int>(std::min(count, most));
}

void PanelGrid::SetColumns(int columns) {
    fIsList = !fpPanels->fvDown.empty() && columns != CountOf(fpPanels->fvAcross);
    fColumns = columns;
    fRows = IsTable() ? CountOf(fpPanels->fvDown) : (Count() + columns - 1) / columns;
}

long PanelGrid::Count() const { return static_cast<long>(CountOf(fpPanels->fvAcross)) * CountOf(fpPanels->fvDown); }

long PanelGrid::Number(const PanelPlace& place) const {
    return static_cast<long>(place.fDown) * CountOf(fpPanels->fvAcross) + place.fAcross;
}

long PanelGrid::ColumnOf(const PanelPlace& place) const { return IsTable() ? place.fAcross : Number(place) % fColumns; }

long PanelGrid::RowOf(const PanelPlace& place) const { return IsTable() ? place.fDown : Number(place) / fColumns; }

bool PanelGrid::IsLastOfColumn(const PanelPlace& place) const {
    return IsTable() ? place.fDown + 1 == fRows : Number(place) + fColumns >= Count();
}

PanelPlace PanelGrid::FirstOfRow(const PanelPlace& place) const {
    if (IsTable()) return {0, place.fDown};
    const long first = Number(place) - ColumnOf(place);
    const long across = CountOf(fpPanels->fvAcross);
    return {static_cast<int>(first % across), static_cast<int>(first / across)};
}

PanelPlace PanelGrid::AxisBelow(const PanelPlace& place) const {
    return IsTable() ? PanelPlace{place.fAcross, static_cast<int>(fRows) - 1} : place;
}

double PanelGrid::Gap() const { return HasHeadings() ? kGap : 0; }

double PanelGrid::SideRoom() const { return IsTable() ? LineHeight(kHeadingStyle) + kHeadingGap : 0; }

double PanelGrid::PlotWidth(double width, const PanelRooms& rooms) const {
    const double columns = fColumns;
    const double forAll = width - rooms.fLeftOnce - SideRoom() - (columns - 1) * Gap();
    return forAll / columns - rooms.fLeftEach - rooms.fRightEach;
}

void PanelGrid::Place(double top, double plotWidth, double plotHeight, const PanelRooms& rooms) {
    fTop = top;
    fPlotWidth = plotWidth;
    fPlotHeight = plotHeight;
    fRooms = rooms;
    fHeadingLines = 1;
    if (WidestHeading() > RoomOver()) fHeadingLines = WidestHeading() <= 2 * kFilledLines * RoomOver() ? 2 : 3;
}

double PanelGrid::HeadingRoom(long row) const {
    const bool hasHeadings = HasHeadings() && (row == 0 || !IsTable());
    return hasHeadings ? static_cast<double>(fHeadingLines) * LineHeight(kHeadingStyle) + kHeadingGap : 0;
}

/// The last panels of columns stand in the last row, and in the one before where the last is shorter.
double PanelGrid::RoomUnder(long row) const {
    const bool isLast = row + 1 == fRows;
    const bool isBeforeShort = !IsTable() && row + 2 == fRows && Count() % fColumns != 0;
    return isLast || isBeforeShort ? fRooms.fBelow : fRooms.fBelowEach;
}

double PanelGrid::TopOf(long row) const {
    double top = fTop + HeadingRoom(0);
    if (row == 0) return top;
    const double pitch = fPlotHeight + fRooms.fBelowEach + Gap() + HeadingRoom(1);
    return top + pitch * static_cast<double>(row) + RoomUnder(row - 1) - fRooms.fBelowEach;
}

Frame PanelGrid::At(const PanelPlace& place) const {
    const double left = fRooms.fLeftOnce + Pitch() * static_cast<double>(ColumnOf(place)) + fRooms.fLeftEach;
    const double top = TopOf(RowOf(place));
    return {left, top, left + fPlotWidth, top + fPlotHeight};
}

double PanelGrid::Width() const { return fRooms.fLeftOnce + Pitch() * fColumns - Gap() + SideRoom(); }

double PanelGrid::PlotsRight() const {
    return fRooms.fLeftOnce + Pitch() * (fColumns - 1) + fRooms.fLeftEach + fPlotWidth;
}

double PanelGrid::Bottom() const { return TopOf(fRows - 1) + fPlotHeight + fRooms.fBelow; }

std::string PanelGrid::WordsOver(const PanelPlace& place) const {
    const std::string& across = fpPanels->fvAcross[static_cast<std::size_t>(place.fAcross)];
    return fIsList ? fpPanels->fvDown[static_cast<std::size_t>(place.fDown)] + ", " + across : across;
}

double PanelGrid::WidestHeading() const {
    const double across = WidestLine(fpPanels->fvAcross, kHeadingStyle);
    if (!fIsList) return across;
    return WidestLine(fpPanels->fvDown, kHeadingStyle) + TextWidth(", ", kHeadingStyle) + across;
}

/// The last line stands right over the panel.
void PanelGrid::AddOver(Element& element, const PanelPlace& place, const std::vector<std::string>& lines) const {
    const Frame plot = At(place);
    const double others = static_cast<double>(lines.size() - 1) * LineHeight(kHeadingStyle);
    AddLines(element, lines, {plot.fLeft, plot.fTop - kHeadingGap - Descent(kHeadingStyle) - others}, kHeadingStyle);
}

Shape PanelGrid::HeadingBeside(const PanelPlace& place, std::string words) const {
    const Frame plot = At({fColumns - 1, place.fDown});
    const Point beside{plot.fRight + fRooms.fRightEach + kHeadingGap + Descent(kHeadingStyle),
                       (plot.fTop + plot.fBottom) / 2};
    Shape shape = MakeText(std::move(words), beside, kHeadingStyle, Anchor::Middle);
    std::get<Text>(shape.fForm).fTurn = 90;
    return shape;
}

void PanelGrid::AddHeadings(Scene& scene, const std::vector<PanelPlace>& places) const {
    if (!HasHeadings()) return;
    std::vector<std::pair<int, int>> over;  // down, across
    std::vector<int> rows;
    for (const PanelPlace& place : places) {
        over.emplace_back(IsTable() ? 0 : place.fDown, place.fAcross);
        if (IsTable()) rows.push_back(place.fDown);
    }
    Unite(over);
    Unite(rows);
    std::vector<std::string> words;
    words.reserve(over.size());
    for (const auto& [down, across] : over) words.push_back(WordsOver({across, down}));
    std::vector<std::string> beside;
    beside.reserve(rows.size());
    for (const int row : rows) beside.push_back(fpPanels->fvDown[static_cast<std::size_t>(row)]);
    const auto wrapped = WrapTexts(words, RoomOver(), kHeadingStyle, fHeadingLines);
    beside = CutTexts(beside, fPlotHeight, kHeadingStyle);
    Element element;
    for (std::size_t at = 0; at < over.size(); ++at) {
        AddOver(element, {over[at].second, over[at].first}, wrapped[at]);
    }
    for (std::size_t at = 0; at < rows.size(); ++at) {
        element.fvShapes.push_back(HeadingBeside({0, rows[at]}, std::move(beside[at])));
    }
    scene.fvElements.push_back(std::move(element));
}

}  // namespace hierfit::report::charts
