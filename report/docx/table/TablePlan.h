#pragma once

#include <string_view>
#include <vector>

#include "report/docx/Page.h"
#include "report/docx/Styles.h"
#include "report/docx/table/ColumnRoom.h"
#include "report/layout/Grid.h"

namespace hierfit::report::docx {

/// No table of the form has more columns.
inline constexpr int kMostColumns = 63;

/// Columns of data that are printed side by side, behind the row headers. Widths are twentieths of a point.
struct TablePart {
    int fFirst = 0;
    int fEnd = 0;                ///< behind the last
    std::vector<int> fvLevels;   ///< widths of the row headers' columns
    std::vector<int> fvColumns;  ///< widths of the columns of data

    int Width() const;
};

/// How a table stands on the page: the kind of page, the parts that it is printed in, and how wide their columns are.
/// It points into the grid, which must outlive it.
class TablePlan {
  public:
    explicit TablePlan(const Grid& grid);

    Page GetPage() const { return fPage; }
    const TableStyles& Styles() const { return *fpStyles; }
    const std::vector<TablePart>& Parts() const { return fvParts; }

    /// Columns of row headers. Where there are more levels than a page holds, all labels of a row stand in one.
    int CountLevels() const { return static_cast<int>(fvLevels.size()); }
    bool AreLevelsJoined() const { return fAreLevelsJoined; }

    /// Whether what reads as a number stands below others at the decimal sign.
    bool IsFigures(int column) const { return At(column).fIsFigures; }

    /// Where the decimal signs stand in a column of figures of a width, from where its texts begin.
    int DecimalAt(int column, int width) const;

    /// A header that would fill a page is not repeated on each.
    bool RepeatsHeader() const { return fRepeatsHeader; }

    /// Rows that may be longer than a page have to part.
    bool PartsRows() const { return fPartsRows; }

  private:
    struct Column {  // its lengths are of plain letters
        bool fIsFigures = false;
        double fAhead = 0;   ///< of the decimal sign
        double fBehind = 0;  ///< and from it on
    };

    void MeasureCells();
    void MeasureCell(int column, const DataCell& cell);
    void MeasureRowHeaders();
    void MeasureColumnHeaders();
    void ChooseSetting();
    void Set(Page page, const TableStyles& styles);
    void MakeParts();
    bool DoesFit() const;
    int EndOfPart(int first, double room) const;
    TablePart MakePart(int first, int end) const;
    double LevelsOnPage() const;
    void Note(std::string_view words);

    const Column& At(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

    const Grid& fGrid;
    Page fPage = Page::Upright;
    const TableStyles* fpStyles = &kPlainTable;
    bool fAreLevelsJoined;
    bool fRepeatsHeader = true;
    bool fPartsRows = false;
    std::vector<Column> fvColumns;
    std::vector<Room> fvPlainLevels;  ///< room of the columns of row headers in plain letters, without margins
    std::vector<Room> fvPlainRooms;   ///< and of the columns of data
    std::vector<Room> fvLevels;       ///< the same in the styles' letters, with margins
    std::vector<Room> fvRooms;
    std::vector<TablePart> fvParts;
};

}  // namespace hierfit::report::docx
