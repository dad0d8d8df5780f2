#pragma once

#include <memory>
#include <string>
#include <vector>

#include "report/layout/Grid.h"
#include "report/text/CellLines.h"

namespace hierfit::report {

/// How close together a table is set.
struct Density {
    int fGap = 2;                  ///< blanks between two columns of text
    bool fWrapsHeaders = false;    ///< to their widest word
    bool fWrapsRowLabels = false;  ///< as far as more columns stand side by side for it
};

/// Room for numbers that stand below each other by their decimal signs.
struct NumberRoom {
    int fLeft = 0;   ///< for digits in front of the decimal sign
    int fRight = 0;  ///< for the decimal sign and what follows

    int Width() const { return fLeft + fRight; }
};

/// A column of data as text. Percentages and other numbers in one column stand each below their own.
struct DataColumn {
    int fWidth = 0;
    NumberRoom fNumbers;
    NumberRoom fPercentages;
    bool fIsText = false;  ///< holds something else than numbers, too

    const NumberRoom& RoomOf(const CellLines& cell) const { return cell.fIsPercentage ? fPercentages : fNumbers; }
};

/// Columns of data that are printed side by side, from the first to before the last.
struct Block {
    int fFirst;
    int fEnd;
};

/// The texts of a grid and the widths of its columns on a terminal. It points into the grid, which must outlive it.
///
/// Headers are wrapped where they would make their columns much wider; with a limited width, row labels and texts are
/// wrapped too, and the columns part into blocks.
class TablePlan {
  public:
    /// A limit of 0 is none.
    TablePlan(const Grid& grid, int limit, Density density);

    int GetLimit() const { return fLimit; }
    int GetGap() const { return fDensity.fGap; }

    const CellLines& RowHeader(std::size_t index) const { return fvRowHeaders[index]; }
    const CellLines& ColumnHeader(std::size_t index) const { return fvColumnHeaders[index]; }

    /// The column headers that stand on a level, from left to right. One of several levels stands on the lowest.
    const std::vector<std::size_t>& HeadersAt(int level) const { return fvHeadersAt[static_cast<std::size_t>(level)]; }

    const CellLines& Corner(std::size_t index) const { return fvCorner[index]; }
    const CellLines& Cell(int row, int column) const;
    const DataColumn& Column(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

    /// Where a level of row headers starts on the line.
    int StartOfLevel(int level) const;

    /// Where the first column of a block starts on the line.
    int StartOfData() const { return StartOfLevel(static_cast<int>(fvLevels.size())); }

    /// Width of neighbouring columns with the gaps between them.
    int WidthOf(Block columns) const;

    /// Parts the columns so that each block fits the limit where that can be, and between groups rather than in them.
    std::vector<Block> MakeBlocks() const { return MakeBlocks(StartOfData()); }

  private:
    void MakeCells();
    void MakeRowHeaders(int room);
    void MeasureLevels();
    void LimitLevels(int room);
    void FitRowHeaders();
    std::vector<int> FindLeastLevels() const;
    void MeasureColumns();
    void MeasureColumn(int column);
    void MakeColumnHeaders();
    int LeastWidthOf(const HeaderCell& header) const;
    void FitColumnHeader(const HeaderCell& header, CellLines& lines);
    void Widen(Block columns, int width);
    std::vector<Block> MakeBlocks(int startOfData) const;
    std::vector<int> FindGroups() const;
    int FindEnd(int first, int startOfData, const std::vector<int>& groups) const;

    const Grid& fGrid;
    int fLimit;
    Density fDensity;
    std::vector<CellLines> fvRowHeaders;
    std::vector<CellLines> fvColumnHeaders;
    std::vector<std::vector<std::size_t>> fvHeadersAt;
    std::vector<CellLines> fvCorner;
    std::vector<CellLines> fvCells;
    std::vector<int> fvLevels;  ///< widths
    std::vector<DataColumn> fvColumns;
};

/// Plans a table as loosely as its columns still part into the fewest blocks.
std::unique_ptr<const TablePlan> MakePlan(const Grid& grid, int limit);

}  // namespace hierfit::report
