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

int CountOf(const std::vector<std::string>& headings) { return std::max(static_cast<int>(headings.size()), 1); }

int FittingInto(double width, double leastWidth) {
    return std::clamp(static_cast<int>((width + kGap) / (leastWidth + kGap)), 1, 1000);
}

int RowsFor(int count, int columns) { return (count + columns - 1) / columns; }

}  // namespace

PanelGrid::PanelGrid(const document::PicturePanels& panels, double width, double leastWidth) : fpPanels(&panels) {
    const int across = CountOf(panels.fvAcross);
    const int fitting = FittingInto(width, leastWidth);
    fIsList = !panels.fvDown.empty() && across > fitting;
    if (IsGrid()) {
        fColumns = across;
        fRows = CountOf(panels.fvDown);
        return;
    }
    const int wished = panels.fAbreast > 0 ? std::min(panels.fAbreast, kMostAbreast) : kMostAbreast;
    fColumns = std::min({Count(), wished, fitting});
    fRows = RowsFor(Count(), fColumns);
}

int PanelGrid::Count() const { return CountOf(fpPanels->fvAcross) * CountOf(fpPanels->fvDown); }

int PanelGrid::Number(const PanelPlace& place) const {
    return place.fDown * CountOf(fpPanels->fvAcross) + place.fAcross;
}

int PanelGrid::ColumnOf(const PanelPlace& place) const { return IsGrid() ? place.fAcross : Number(place) % fColumns; }

int PanelGrid::RowOf(const PanelPlace& place) const { return IsGrid() ? place.fDown : Number(place) / fColumns; }

bool PanelGrid::IsLastOfColumn(const PanelPlace& place) const {
    return IsGrid() ? place.fDown + 1 == fRows : Number(place) + fColumns >= Count();
}

double PanelGrid::Gap() const { return HasHeadings() ? kGap : 0; }

double PanelGrid::SideRoom() const { return IsGrid() ? LineHeight(kHeadingStyle) + kHeadingGap : 0; }

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
}

double PanelGrid::HeadingRoom(int row) const {
    const bool hasHeadings = HasHeadings() && (row == 0 || !IsGrid());
    return hasHeadings ? LineHeight(kHeadingStyle) + kHeadingGap : 0;
}

/// The last panels of columns stand in the last row, and in the one before where the last is shorter.
double PanelGrid::RoomUnder(int row) const {
    const bool isLast = row + 1 == fRows;
    const bool isBeforeShort = !IsGrid() && row + 2 == fRows && Count() % fColumns != 0;
    return isLast || isBeforeShort ? fRooms.fBelow : fRooms.fBelowEach;
}

double PanelGrid::TopOf(int row) const {
    double top = fTop + HeadingRoom(0);
    if (row == 0) return top;
    const double pitch = fPlotHeight + fRooms.fBelowEach + Gap() + HeadingRoom(1);
    return top + pitch * row + RoomUnder(row - 1) - fRooms.fBelowEach;
}

Frame PanelGrid::At(const PanelPlace& place) const {
    const double left = fRooms.fLeftOnce + Pitch() * ColumnOf(place) + fRooms.fLeftEach;
    const double top = TopOf(RowOf(place));
    return {left, top, left + fPlotWidth, top + fPlotHeight};
}

double PanelGrid::Width() const { return fRooms.fLeftOnce + Pitch() * fColumns - Gap() + SideRoom(); }

double PanelGrid::Bottom() const { return TopOf(fRows - 1) + fPlotHeight + fRooms.fBelow; }

void PanelGrid::AddHeading(Scene& scene, const PanelPlace& place) const {
    if (!HasHeadings()) return;
    const Frame plot = At(place);
    Element element;
    std::string words = fpPanels->fvAcross[static_cast<std::size_t>(place.fAcross)];
    if (fIsList) words = fpPanels->fvDown[static_cast<std::size_t>(place.fDown)] + ", " + words;
    const double room = fPlotWidth + fRooms.fRightEach;
    const Point over{plot.fLeft, plot.fTop - kHeadingGap - Descent(kHeadingStyle)};
    if (!IsGrid() || RowOf(place) == 0) {
        element.fvShapes.push_back(MakeText(CutText(words, room, kHeadingStyle), over, kHeadingStyle));
    }
    if (IsGrid() && ColumnOf(place) + 1 == fColumns) {
        const Point beside{plot.fRight + fRooms.fRightEach + kHeadingGap + Descent(kHeadingStyle),
                           (plot.fTop + plot.fBottom) / 2};
        const std::string& down = fpPanels->fvDown[static_cast<std::size_t>(place.fDown)];
        Shape shape = MakeText(CutText(down, fPlotHeight, kHeadingStyle), beside, kHeadingStyle, Anchor::Middle);
        std::get<Text>(shape.fForm).fTurn = 90;
        element.fvShapes.push_back(std::move(shape));
    }
    scene.fvElements.push_back(std::move(element));
}

}  // namespace hierfit::report::charts
