#pragma once

#include <vector>

#include "host/document/Table.h"
#include "report/layout/GridParts.h"

namespace hierfit::report {

/// A table laid out: what text, HTML and workbook print. It points into the table, which must outlive it.
///
/// Rows and columns are the combinations of categories that have a cell, in the order of dimensions and members; groups
/// without categories and dimensions without members are not laid out. Cells without a category in a dimension stand
/// under one blank header behind its categories. A table with few cells for its rows and columns (below one in 64, and
/// more than 100,000 places) is laid out as a list, all dimensions on the rows.
struct Grid {
    const document::Table* fpTable = nullptr;
    int fRows = 0;
    int fColumns = 0;
    int fRowLevels = 0;                       ///< columns of row headers
    int fColumnLevels = 0;                    ///< rows of column headers
    std::vector<CornerCell> fvCorner;         ///< by level; together they cover all row levels
    std::vector<HeaderCell> fvRowHeaders;     ///< by first row, then level
    std::vector<HeaderCell> fvColumnHeaders;  ///< by level, then first column
    std::vector<DataCell> fvCells;            ///< row by row, `fRows` times `fColumns`
    std::vector<Note> fvNotes;                ///< lettered notes in reading order

    const DataCell& At(int row, int column) const {
        return fvCells[static_cast<std::size_t>(row) * static_cast<std::size_t>(fColumns) +
                       static_cast<std::size_t>(column)];
    }
};

/// Lays a table out. Time and memory are linear in cells, headers and `fRows` times `fColumns`.
Grid MakeGrid(const document::Table& table);

/// The same with every name and label, hidden ones too, and with the names of dimensions in the corner alone: what a
/// file for other programs needs.
Grid MakeFullGrid(const document::Table& table);

}  // namespace hierfit::report
