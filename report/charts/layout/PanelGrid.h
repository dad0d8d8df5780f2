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

    /// The same with so many columns, one at least. Panels of two variables follow each other unless there is a column
    /// for each level of the first.
    static PanelGrid OfColumns(const document::PicturePanels& panels, int columns);

    /// So many panels stand side by side at most where they follow each other.
    static int MostAbreast(const document::PicturePanels& panels);

    /// Whether columns and rows stand for levels.
    bool IsTable() const { return !fpPanels->fvDown.empty() && !fIsList; }

    bool HasHeadings() const { return !fpPanels->fvAcross.empty(); }
    int Columns() const { return fColumns; }
    long Rows() const { return fRows; }

    /// The width of a panel's plot when all columns share a width.
    double PlotWidth(double width, const PanelRooms& rooms) const;

    /// The width that the widest heading over a panel asks for, in one line.
    double WidestHeading() const;

    /// Settles where panels stand: the first row begins at `top`.
    void Place(double top, double plotWidth, double plotHeight, const PanelRooms& rooms);

    Frame At(const document::PanelPlace& place) const;
    bool IsLastOfColumn(const document::PanelPlace& place) const;

    /// The panel at the left end of a panel's row, and the one below it that bears the axis: in a table the last of its
    /// column, else itself. They may have no marks of their own.
    document::PanelPlace FirstOfRow(const document::PanelPlace& place) const;
    document::PanelPlace AxisBelow(const document::PanelPlace& place) const;

    double Width() const;
    double PlotsRight() const;  ///< where the plots of the last column end
    double Bottom() const;      ///< of all, rooms for axes included

    /// The headings of these panels, each once, in a table those of their columns and rows. Headings that would be cut
    /// to the same words are cut so that they differ.
    void AddHeadings(Scene& scene, const std::vector<document::PanelPlace>& places) const;

  private:
    explicit PanelGrid(const document::PicturePanels& panels) : fpPanels(&panels) {}

    void SetColumns(int columns);
    long Number(const document::PanelPlace& place) const;
    long Count() const;
    long ColumnOf(const document::PanelPlace& place) const;
    long RowOf(const document::PanelPlace& place) const;
    std::string WordsOver(const document::PanelPlace& place) const;
    void AddOver(Element& element, const document::PanelPlace& place, const std::vector<std::string>& lines) const;
    Shape HeadingBeside(const document::PanelPlace& place, std::string words) const;
    double RoomOver() const { return fPlotWidth + fRooms.fRightEach; }
    double Pitch() const { return fRooms.fLeftEach + fPlotWidth + fRooms.fRightEach + Gap(); }
    double Gap() const;
    double SideRoom() const;
    double HeadingRoom(long row) const;
    double RoomUnder(long row) const;
    double TopOf(long row) const;

    const document::PicturePanels* fpPanels;
    bool fIsList = false;  ///< panels of two variables follow each other
    int fColumns = 1;
    long fRows = 1;
    std::size_t fHeadingLines = 1;
    double fTop = 0;
    double fPlotWidth = 0;
    double fPlotHeight = 0;
    PanelRooms fRooms;
};

}  // namespace hierfit::report::charts
