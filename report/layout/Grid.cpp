#include "report/layout/Grid.h"

#include <algorithm>

#include "report/layout/Axis.h"
#include "report/layout/NoteLetters.h"

namespace hierfit::report {

namespace {

// A grid has at most so many places, or so many for each cell; otherwise the table becomes a list.
constexpr std::size_t kPlaces = 100'000;
constexpr std::size_t kPlacesPerCell = 64;

std::vector<std::size_t> ListDimensions(const document::Table& table, document::Side side) {
    std::vector<std::size_t> indices;
    for (std::size_t index = 0; index < table.fvDimensions.size(); ++index) {
        if (table.fvDimensions[index].fSide == side) indices.push_back(index);
    }
    const auto isOutside = [&](std::size_t a, std::size_t b) {
        return table.fvDimensions[a].fIndex > table.fvDimensions[b].fIndex;
    };
    std::stable_sort(indices.begin(), indices.end(), isOutside);
    return indices;
}

bool IsTooSparse(const Axis& rows, const Axis& columns, std::size_t cells) {
    const auto places = static_cast<std::size_t>(rows.CountLines()) * static_cast<std::size_t>(columns.CountLines());
    return places > kPlaces && places / kPlacesPerCell > cells;
}

void FillCells(Grid& grid, const Axis& rows, const Axis& columns) {
    const auto width = static_cast<std::size_t>(grid.fColumns);
    grid.fvCells.resize(static_cast<std::size_t>(grid.fRows) * width);
    std::size_t index = 0;
    for (const document::Cell& cell : grid.fpTable->fvCells) {
        grid.fvCells[rows.LineOf(index) * width + columns.LineOf(index)].fpCell = &cell;
        ++index;
    }
}

void LetterHeader(HeaderCell& header, NoteLetters& letters) {
    if (header.fpCategory) header.fvNotes = letters.Add(header.fpCategory->fvNotes);
}

void LetterNotes(Grid& grid) {
    NoteLetters letters;
    for (HeaderCell& header : grid.fvColumnHeaders) LetterHeader(header, letters);
    auto header = grid.fvRowHeaders.begin();
    auto cell = grid.fvCells.begin();
    for (int row = 0; row < grid.fRows; ++row) {
        for (; header != grid.fvRowHeaders.end() && header->fFirst == row; ++header) LetterHeader(*header, letters);
        for (const auto end = cell + grid.fColumns; cell != end; ++cell) {
            if (cell->fpCell) cell->fvNotes = letters.Add(cell->fpCell->fvNotes);
        }
    }
    grid.fvNotes = letters.TakeNotes();
}

Grid MakeGridOf(const document::Table& table, const Axis& rows, const Axis& columns) {
    Grid grid;
    grid.fpTable = &table;
    grid.fRows = rows.CountLines();
    grid.fColumns = columns.CountLines();
    grid.fRowLevels = rows.CountLevels();
    grid.fColumnLevels = columns.CountLevels();
    grid.fvCorner = rows.MakeCorner();
    grid.fvRowHeaders = rows.MakeHeaders();
    grid.fvColumnHeaders = columns.MakeHeaders();
    const auto isAbove = [](const HeaderCell& a, const HeaderCell& b) { return a.fLevel < b.fLevel; };
    std::stable_sort(grid.fvColumnHeaders.begin(), grid.fvColumnHeaders.end(), isAbove);
    FillCells(grid, rows, columns);
    LetterNotes(grid);
    return grid;
}

Grid MakeGridShowing(const document::Table& table, Axis::Shows onRows, Axis::Shows onColumns) {
    std::vector<std::size_t> rowDimensions = ListDimensions(table, document::Side::Rows);
    const std::vector<std::size_t> columnDimensions = ListDimensions(table, document::Side::Columns);
    const Axis rows(table, rowDimensions, onRows);
    const Axis columns(table, columnDimensions, onColumns);
    if (!IsTooSparse(rows, columns, table.fvCells.size())) return MakeGridOf(table, rows, columns);
    rowDimensions.insert(rowDimensions.end(), columnDimensions.begin(), columnDimensions.end());
    return MakeGridOf(table, Axis(table, rowDimensions, onRows), Axis(table, {}, onColumns));
}

}  // namespace

Grid MakeGrid(const document::Table& table) { return MakeGridShowing(table, Axis::Shows::Labels, Axis::Shows::Named); }

Grid MakeFullGrid(const document::Table& table) { return MakeGridShowing(table, Axis::Shows::All, Axis::Shows::All); }

}  // namespace hierfit::report
