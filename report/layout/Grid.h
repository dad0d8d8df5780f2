#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/document/Table.h"

namespace hierfit::report {

/// Letters of notes, "a" to "z", then "aa" and so on.
struct Note {
    std::string fLetter;
    const document::Text* fpText;
};

/// One header cell. It covers `fSpan` rows (a row header) or columns (a column header) of data, and `fLevels` levels of
/// headers, where a category stands less deep than others beside it.
struct HeaderCell {
    int fFirst = 0;  ///< first row or column of data that it covers, from 0
    int fSpan = 1;
    int fLevel = 0;  ///< first level, from 0, the outermost
    int fLevels = 1;
    const document::Text* fpLabel = nullptr;         ///< null for the blank header of cells without a category
    const document::Category* fpCategory = nullptr;  ///< null for a group, a name and the blank header
    bool fIsDimensionName = false;  ///< the name of a dimension that stands above its categories' labels
    bool fIsGroup = false;
    std::vector<int> fvNotes;  ///< indices in `Grid::fvNotes`
};

/// The name of a row dimension, which stands above its levels of row headers.
struct CornerCell {
    int fLevel = 0;
    int fLevels = 1;
    const document::Text* fpName = nullptr;  ///< null where the name is hidden
};

/// One data cell; null content where a combination of categories has no cell.
struct DataCell {
    const document::Cell* fpCell = nullptr;
    std::vector<int> fvNotes;  ///< indices in `Grid::fvNotes`
};

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

}  // namespace hierfit::report
