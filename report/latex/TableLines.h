#pragma once

#include <string>
#include <vector>

#include "report/latex/Notes.h"
#include "report/latex/TablePlan.h"
#include "report/layout/Grid.h"

namespace hierfit::report::latex {

/// Writes the lines of a block of a table.
class TableLines {
  public:
    TableLines(const Grid& grid, const TablePlan& plan, Block block, Notes& notes, Scripts& scripts)
        : fGrid(grid), fPlan(plan), fBlock(block), fNotes(notes), fScripts(scripts) {}

    /// The columns, as the argument of `tabular`.
    std::string MakeColumns(bool isStretched) const;

    /// Rules about the header and the header itself; a rule alone where there is none.
    std::string MakeHead();

    void AppendBody(std::string& out);

  private:
    bool HasCornerNames() const;
    void AppendCorner(std::string& out, bool isLastRow);
    void AppendHeaderRow(std::string& out, int row);
    void AppendHeader(std::string& out, const HeaderCell& header, int first, int end);
    void AppendLines(std::string& out, const std::vector<std::string>& lines, std::string_view position,
                     std::string_view marks);
    void AppendRowHeaders(std::string& out, int row);
    void AppendRowHeader(std::string& out, const HeaderCell& header);
    void AppendCell(std::string& out, int column, const DataCell& cell);
    std::string SpellText(double width, bool isWrapped) const;
    bool IsLast(int column) const { return column + 1 == fBlock.fEnd; }

    const Grid& fGrid;
    const TablePlan& fPlan;
    Block fBlock;
    Notes& fNotes;
    Scripts& fScripts;
    std::size_t fNext = 0;  ///< row header
    bool fIsGroupOpen = false;
};

}  // namespace hierfit::report::latex
