#include "report/html/table/TableBody.h"

#include <algorithm>
#include <optional>

#include "report/layout/CellContent.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

TableBody::TableBody(TableParts& parts)
    : fParts(parts), fOut(parts.fOut), fGrid(parts.fGrid), fvOpen(static_cast<std::size_t>(parts.fGrid.fRowLevels)) {}

void TableBody::Append() {
    auto cell = fGrid.fvCells.begin();
    for (int row = 0; row < fGrid.fRows; ++row) {
        AppendGroupStart(row);
        AppendRowTag(static_cast<std::size_t>(row));
        AppendRowHeaders(row);
        for (int column = 0; column < fGrid.fColumns; ++column) AppendCell(column, *cell++);
        fOut += "</tr>\n";
    }
    fOut += "</tbody>\n";
}

void TableBody::AppendGroupStart(int row) {
    const bool hasHeader = fNext < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[fNext].fFirst == row &&
                           fGrid.fvRowHeaders[fNext].fLevel == 0;
    const bool opensGroup = hasHeader && fGrid.fvRowHeaders[fNext].fSpan > 1;
    const bool closesGroup = hasHeader && fIsGroupOpen;
    if (row > 0 && !opensGroup && !closesGroup) return;
    if (row > 0) fOut += "</tbody>\n";
    fOut += "<tbody>\n";
    fIsGroupOpen = opensGroup;
}

void TableBody::AppendRowTag(std::size_t row) {
    fOut += fParts.fRedundant.fvRows[row] ? "<tr class=\"z\"" : "<tr";
    if (!fParts.fHidden.fvLabels.empty()) AppendFields(fOut, fParts.fHidden.fvLabels[row]);
    fOut += '>';
}

void TableBody::AppendRowHeaders(int row) {
    bool hasChanged = false;
    for (int level = 0; level < fGrid.fRowLevels;) {
        const bool isNew = fNext < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[fNext].fFirst == row &&
                           fGrid.fvRowHeaders[fNext].fLevel == level;
        std::size_t& open = fvOpen[static_cast<std::size_t>(level)];
        if (isNew) open = fNext++;
        const HeaderCell& cell = fGrid.fvRowHeaders[open];
        if (isNew) AppendHeader(cell);
        if (!isNew) AppendContinuation(cell, row);
        hasChanged = hasChanged || isNew;
        level += cell.fLevels;
    }
    if (hasChanged && fParts.fIds.AreNeeded()) SetRowIds();
}

void TableBody::AppendHeader(const HeaderCell& cell) {
    const bool isBlank = IsBlank(cell);
    fOut += isBlank ? "<td class=\"t\"" : cell.fSpan > 1 ? "<th scope=\"rowgroup\"" : "<th scope=\"row\"";
    if (!isBlank && fParts.fIds.AreNeeded()) {
        fOut += " id=\"";
        fParts.fIds.AppendRowId(fOut, static_cast<std::size_t>(&cell - fGrid.fvRowHeaders.data()));
        fOut += '"';
    }
    AppendSpan(fOut, "colspan", cell.fLevels);
    AppendSpan(fOut, "rowspan", std::min(cell.fSpan, kMostRows));
    fOut += '>';
    AppendLabel(fParts, cell);
    fOut += isBlank ? "</td>" : "</th>";
}

void TableBody::AppendContinuation(const HeaderCell& cell, int row) {
    const int above = row - cell.fFirst;
    if (above % kMostRows != 0) return;
    fOut += "<td";
    AppendSpan(fOut, "colspan", cell.fLevels);
    AppendSpan(fOut, "rowspan", std::min(cell.fSpan - above, kMostRows));
    fOut += "></td>";
}

void TableBody::SetRowIds() {
    fRowIds.clear();
    for (std::size_t level = 0; level < fvOpen.size();) {
        const HeaderCell& cell = fGrid.fvRowHeaders[fvOpen[level]];
        level += static_cast<std::size_t>(cell.fLevels);
        if (IsBlank(cell)) continue;
        fRowIds += ' ';
        fParts.fIds.AppendRowId(fRowIds, static_cast<std::size_t>(&cell - fGrid.fvRowHeaders.data()));
    }
}

void TableBody::AppendCell(int column, const DataCell& cell) {
    fOut += "<td";
    if (fParts.fIds.AreNeeded()) AppendHeadersAttribute(column);
    if (cell.fpCell) {
        AppendContent(column, cell.fpCell->fContent);
    } else {
        fOut += '>';
    }
    fParts.fMarks.AppendMarks(fOut, cell.fvNotes);
    fOut += "</td>";
}

void TableBody::AppendHeadersAttribute(int column) {
    const std::string_view columnIds = fParts.fIds.OfColumn(column);
    const std::string_view rowIds = fRowIds;
    if (rowIds.empty() && columnIds.empty()) return;
    fOut += " headers=\"";
    fOut += rowIds.substr(rowIds.empty() ? 0 : 1);
    fOut += columnIds.substr(rowIds.empty() ? 1 : 0);
    fOut += '"';
}

void TableBody::AppendContent(int column, const document::Text& text) {
    const bool isNumber = IsNumber(text) && !fParts.fColumns.IsText(column);
    if (!isNumber) fOut += " class=\"t\"";
    const std::string padding = isNumber ? fParts.fColumns.PaddingOf(column, text.fWords) : std::string();
    if (!padding.empty()) {
        fOut += " data-pad=\"";
        AppendCharacters(fOut, padding);
        fOut += '"';
    }
    if (fParts.fValues == FullValues::Yes) AppendFullValue(text);
    fOut += '>';
    AppendText(fOut, text.fWords);
}

void TableBody::AppendFullValue(const document::Text& text) {
    const std::optional<double> number = FindNumber(text);
    if (!number) return;
    const std::string digits = SpellNumber(*number);
    if (digits != text.fWords) fOut.append(" data-value=\"").append(digits).append("\"");
}

}  // namespace hierfit::report::html
