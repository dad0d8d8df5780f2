#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/Axes.h"

namespace hierfit::report::charts {

/// Rooms around each panel for axes, in pixels.
struct PanelRooms {
    double fLeftOnce = 0;   ///< left of the first column
    double fLeftEach = 0;   ///< left of every panel
    double fRightEach = 0;  ///< right of every panel
    double fBelow = 0;      ///< below the last panel of each column
    double fBelowEach = 0;  ///< below every other panel
};

/// Panels of one size in rows and columns, with their headings. Two variables make a column for each level of the first
/// and a row for each level of the second; where that is too wide, panels follow each other and each names both levels.
/// It borrows the panels. All places are found by their numbers, so that empty panels cost nothing.
class PanelGrid {
  public:
    /// `leastWidth`: what one panel takes at least, with what stands beside it.
    PanelGrid(const document::PicturePanels& panels, double width, double leastWidth);

    bool HasHeadings() const { return !fpPanels->fvAcross.empty(); }
    int Columns() const { return fColumns; }
    int Rows() const { return fRows; }

    /// The width of a panel's plot when all columns share a width.
    double PlotWidth(double width, const PanelRooms& rooms) const;

    /// Settles where panels stand: the first row begins at `top`.
    void Place(double top, double plotWidth, double plotHeight, const PanelRooms& rooms);

    Frame At(const document::PanelPlace& place) const;
    bool IsFirstOfRow(const document::PanelPlace& place) const { return ColumnOf(place) == 0; }
    bool IsLastOfColumn(const document::PanelPlace& place) const;

    double Width() const;
    double Bottom() const;  ///< of all, rooms for axes included

    /// The heading over a panel; in a grid of two variables those of the first row, and beside rows those of the last
    /// column.
    void AddHeading(Scene& scene, const document::PanelPlace& place) const;

  private:
    bool IsGrid() const { return !fpPanels->fvDown.empty() && !fIsList; }
    int Number(const document::PanelPlace& place) const;
    int Count() const;
    int ColumnOf(const document::PanelPlace& place) const;
    int RowOf(const document::PanelPlace& place) const;
    double Pitch() const { return fRooms.fLeftEach + fPlotWidth + fRooms.fRightEach + Gap(); }
    double Gap() const;
    double SideRoom() const;
    double HeadingRoom(int row) const;
    double RoomUnder(int row) const;
    double TopOf(int row) const;

    const document::PicturePanels* fpPanels;
    bool fIsList = false;  ///< panels of two variables follow each other
    int fColumns = 1;
    int fRows = 1;
    double fTop = 0;
    double fPlotWidth = 0;
    double fPlotHeight = 0;
    PanelRooms fRooms;
};

}  // namespace hierfit::report::charts
