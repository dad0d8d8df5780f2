#include "report/html/table/HeaderIds.h"

#include <algorithm>

namespace hierfit::report::html {

HeaderIds::HeaderIds(std::string prefix, const Grid& grid)
    : fPrefix(std::move(prefix)),
      fAreNeeded(grid.fRowLevels > 1 || grid.fColumnLevels > 1),
      fvColumns(static_cast<std::size_t>(grid.fColumns)) {
    if (!fAreNeeded) return;
    for (std::size_t header = 0; header < grid.fvColumnHeaders.size(); ++header) {
        AddToColumns(grid.fvColumnHeaders[header], header);
    }
}

void HeaderIds::AddToColumns(const HeaderCell& cell, std::size_t header) {
    if (IsBlank(cell)) return;
    std::string id(1, ' ');
    AppendColumnId(id, header);
    const auto first = fvColumns.begin() + cell.fFirst;
    std::for_each(first, first + cell.fSpan, [&](std::string& ids) { ids += id; });
}

void HeaderIds::AppendId(std::string& out, char side, std::size_t header) const {
    out += fPrefix;
    out += side;
    out += std::to_string(header);
}

bool IsBlank(const HeaderCell& cell) {
    return !cell.fpLabel || cell.fpLabel->fWords.find_first_not_of(" \t\r\n") == std::string::npos;
}

}  // namespace hierfit::report::html
