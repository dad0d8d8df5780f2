#pragma once

#include "report/html/table/TableParts.h"

namespace hierfit::report::html {

/// Writes column groups and `thead` of a table: column headers, and the names of the row dimensions in the corner.
class TableHead {
  public:
    explicit TableHead(TableParts& parts);

    void Append();

  private:
    bool HasCornerNames() const;
    void AppendColumnGroups();
    void AppendColumnGroup(int span);
    void AppendRow(int row);
    void AppendCorner(int row);
    void AppendCornerCell(const CornerCell& cell);
    void AppendBlankCorner(int rows);
    void AppendHeader(const HeaderCell& cell, std::size_t index);
    void AppendContinuation(const HeaderCell& cell, int span);

    TableParts& fParts;
    std::string& fOut;
    const Grid& fGrid;
    int fRows;
    std::size_t fNext = 0;  ///< the first header cell that is still to be written
};

}  // namespace hierfit::report::html
