#include "report/html/table/TableHead.h"

#include <algorithm>

#include "report/markup/Escape.h"

namespace hierfit::report::html {

TableHead::TableHead(TableParts& parts)
    : fParts(parts),
      fOut(parts.fOut),
      fGrid(parts.fGrid),
      fRows(std::max(parts.fGrid.fColumnLevels, HasCornerNames() ? 1 : 0)) {}

bool TableHead::HasCornerNames() const {
    const auto isNamed = [](const CornerCell& cell) { return cell.fpName != nullptr; };
    return std::any_of(fGrid.fvCorner.begin(), fGrid.fvCorner.end(), isNamed);
}

void TableHead::Append() {
    if (fRows == 0) return;
    AppendColumnGroups();
    fOut += "<thead>\n";
    for (int row = 0; row < fRows; ++row) AppendRow(row);
    fOut += "</thead>\n";
}

// A header cell of several columns is one of a group that has to be declared.
void TableHead::AppendColumnGroups() {
    const auto spans = [](const HeaderCell& cell) { return cell.fSpan > 1; };
    if (std::none_of(fGrid.fvColumnHeaders.begin(), fGrid.fvColumnHeaders.end(), spans)) return;
    if (fGrid.fRowLevels > 0) AppendColumnGroup(fGrid.fRowLevels);
    for (const HeaderCell& cell : fGrid.fvColumnHeaders) {
        if (cell.fLevel > 0) break;
        AppendColumnGroup(cell.fSpan);
    }
    fOut += '\n';
}

void TableHead::AppendColumnGroup(int span) {
    for (; span > 0; span -= kMostColumns) {
        fOut += "<colgroup";
        AppendSpan(fOut, "span", std::min(span, kMostColumns));
        fOut += "></colgroup>";
    }
}

void TableHead::AppendRow(int row) {
    fOut += "<tr>";
    if (fGrid.fRowLevels > 0) AppendCorner(row);
    for (; fNext < fGrid.fvColumnHeaders.size() && fGrid.fvColumnHeaders[fNext].fLevel == row; ++fNext) {
        AppendHeader(fGrid.fvColumnHeaders[fNext], fNext);
    }
    if (fGrid.fColumnLevels == 0) {
        fOut += "<td";
        AppendSpan(fOut, "colspan", std::min(fGrid.fColumns, kMostColumns));
        fOut += "></td>";
    }
    fOut += "</tr>\n";
}

// The names stand in the last row, right above what they name.
void TableHead::AppendCorner(int row) {
    const bool hasNames = HasCornerNames();
    const int blankRows = hasNames ? fRows - 1 : fRows;
    if (row == 0 && blankRows > 0) AppendBlankCorner(blankRows);
    if (row < fRows - 1 || !hasNames) return;
    for (const CornerCell& cell : fGrid.fvCorner) AppendCornerCell(cell);
}

void TableHead::AppendBlankCorner(int rows) {
    fOut += fGrid.fRowLevels == 1 ? "<td class=\"k\"" : "<td";
    AppendSpan(fOut, "colspan", fGrid.fRowLevels);
    AppendSpan(fOut, "rowspan", rows);
    fOut += "></td>";
}

void TableHead::AppendCornerCell(const CornerCell& cell) {
    const bool isNamed = cell.fpName && !cell.fpName->fWords.empty();
    const bool isInnermost = cell.fLevel + cell.fLevels == fGrid.fRowLevels;
    fOut += isNamed ? "<th scope=\"col\" class=\"t" : "<td class=\"t";
    fOut += isInnermost ? " k\"" : "\"";
    AppendSpan(fOut, "colspan", cell.fLevels);
    fOut += '>';
    if (isNamed) {
        fOut += "<span>";
        AppendText(fOut, cell.fpName->fWords);
        fOut += "</span>";
    }
    fOut += isNamed ? "</th>" : "</td>";
}

void TableHead::AppendHeader(const HeaderCell& cell, std::size_t index) {
    const bool isBlank = IsBlank(cell);
    const int span = std::min(cell.fSpan, kMostColumns);
    fOut += isBlank ? "<td" : cell.fSpan > 1 ? "<th scope=\"colgroup\"" : "<th scope=\"col\"";
    if (cell.fSpan == 1 && fParts.fColumns.IsText(cell.fFirst)) fOut += " class=\"t\"";
    if (!isBlank && fParts.fIds.AreNeeded()) {
        fOut += " id=\"";
        fParts.fIds.AppendColumnId(fOut, index);
        fOut += '"';
    }
    AppendSpan(fOut, "colspan", span);
    AppendSpan(fOut, "rowspan", cell.fLevels);
    fOut += '>';
    const bool isNarrow = !isBlank && cell.fSpan == 1;
    if (isNarrow) fOut += "<span>";
    AppendLabel(fParts, cell);
    if (isNarrow) fOut += "</span>";
    fOut += isBlank ? "</td>" : "</th>";
    for (int rest = cell.fSpan - span; rest > 0; rest -= kMostColumns) {
        AppendContinuation(cell, std::min(rest, kMostColumns));
    }
}

void TableHead::AppendContinuation(const HeaderCell& cell, int span) {
    fOut += "<td";
    AppendSpan(fOut, "colspan", span);
    AppendSpan(fOut, "rowspan", cell.fLevels);
    fOut += "></td>";
}

}  // namespace hierfit::report::html
