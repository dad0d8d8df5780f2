#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "report/latex/Figure.h"
#include "report/latex/Needs.h"
#include "report/layout/Grid.h"

namespace hierfit::report::latex {

/// How a table is set. Widths are in em of DejaVu Sans in the size of the setting.
struct Setting {
    double fLine;  ///< width of what it may fill
    int fLines;    ///< of the page, for rows
    double fGap;   ///< between two columns
    bool fIsSmall;
    bool fIsSideways;
};

using Settings = std::array<Setting, 3>;  ///< from wide letters to narrow ones, and to a turned page

/// Columns of data that stand side by side, from the first to before the last.
struct Block {
    int fFirst;
    int fEnd;
};

/// One column of the table, of row headers or of data.
struct Column {
    double fNatural = 0;      ///< its width if no label is broken
    double fWidth = 0;        ///< its width
    bool fIsText = true;      ///< else a column of figures
    bool fIsWrapped = false;  ///< a column of paragraphs
    FigureColumn fFigures;
};

/// Longer words are shown by their beginning; the whole stands behind the table.
inline constexpr std::size_t kMostOfCell = 400;

/// What is shown of a text in a cell.
std::string ShownInCell(std::string_view words);

/// "a,b"
std::string SpellMarks(const std::vector<int>& notes, const Grid& grid);

/// The widths of a grid's columns, its setting and its parts. It points into the grid.
class TablePlan {
  public:
    TablePlan(const Grid& grid, Page page);

    const Setting& GetSetting() const { return *fpSetting; }
    const Column& Level(int level) const { return fvLevels[static_cast<std::size_t>(level)]; }
    const Column& Data(int column) const { return fvData[static_cast<std::size_t>(column)]; }
    const std::vector<Block>& Blocks() const { return fvBlocks; }

    /// Whether the rows take more than a page.
    bool IsLong() const { return fIsLong; }

    /// The column headers of a block whose last level is this one, from left to right.
    std::span<const HeaderCell* const> HeadersAt(int level, Block block) const;

    /// Width of row headers and a block together.
    double WidthOf(Block block) const;

    /// The lines of a header in a width.
    static std::vector<std::string> WrapHeader(const document::Text& label, double width);

    /// Room of a header over columns of data.
    double RoomOf(const HeaderCell& header) const;

  private:
    void MeasureLevels();
    void MeasureData();
    void SortHeaders();
    void MeasureHeaders();
    void MeasureHeader(const HeaderCell& header);
    bool Fit(const Setting& setting, Block block, double least);
    void MakeBlocks();
    double FixedWidth(Block block, double gap) const;
    int CountLines() const;

    const Grid& fGrid;
    const Settings& fSettings;
    const Setting* fpSetting = nullptr;
    std::vector<Column> fvLevels;
    std::vector<Column> fvData;
    std::vector<std::vector<const HeaderCell*>> fvHeadersAt;  ///< by last level, from left to right
    std::vector<Block> fvBlocks;
    bool fIsLong = false;
};

}  // namespace hierfit::report::latex
