#include <algorithm>
#include <numeric>

#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/docx/table/Cells.h"
#include "report/docx/table/TableRows.h"
#include "report/markup/Escape.h"

namespace hierfit::report::docx {

namespace {

bool HasCornerNames(const Grid& grid) {
    return std::ranges::any_of(grid.fvCorner, [](const CornerCell& cell) { return cell.fpName != nullptr; });
}

std::vector<std::vector<const HeaderCell*>> ListLevels(const Grid& grid) {
    std::vector<std::vector<const HeaderCell*>> levels(static_cast<std::size_t>(grid.fColumnLevels));
    for (const HeaderCell& header : grid.fvColumnHeaders) {
        for (int level = 0; level < header.fLevels; ++level) {
            levels[static_cast<std::size_t>(header.fLevel + level)].push_back(&header);
        }
    }
    for (auto& headers : levels) std::ranges::sort(headers, {}, &HeaderCell::fFirst);
    return levels;
}

int Sum(const std::vector<int>& widths, int first, int count) {
    return std::accumulate(widths.begin() + first, widths.begin() + first + count, 0);
}

std::string JoinCorner(const Grid& grid) {
    std::string names;
    for (const CornerCell& cell : grid.fvCorner) {
        if (cell.fpName) names.append(names.empty() ? "" : ", ").append(cell.fpName->fWords);
    }
    return names;
}

bool IsBlank(const HeaderCell& header) {
    return !header.fpLabel || header.fpLabel->fWords.find_first_not_of(" \t\r\n") == std::string::npos;
}

}  // namespace

HeaderRows::HeaderRows(const Grid& grid, const TablePlan& plan)
    : fGrid(grid),
      fPlan(plan),
      fRows(std::max(grid.fColumnLevels, HasCornerNames(grid) ? 1 : 0)),
      fvLevels(ListLevels(grid)) {}

void HeaderRows::Append(std::string& out, const TablePart& part) const {
    for (int row = 0; row < fRows; ++row) AppendRow(out, part, row);
}

void HeaderRows::AppendRow(std::string& out, const TablePart& part, int row) const {
    out += "<w:tr>";
    if (fPlan.RepeatsHeader()) out += "<w:trPr><w:cantSplit/><w:tblHeader/></w:trPr>";
    if (fPlan.CountLevels() > 0) AppendCorner(out, part, row);
    if (fGrid.fColumnLevels == 0) {
        const int columns = part.fEnd - part.fFirst;
        AppendCellStart(out, {Sum(part.fvColumns, 0, columns), columns, Merge::None, true, IsLast(row)});
        AppendParagraph(out, fPlan.Styles().fColumnHeader, {});
        out += kCellEnd;
    } else {
        const auto& headers = fvLevels[static_cast<std::size_t>(row)];
        auto header = std::prev(std::ranges::upper_bound(headers, part.fFirst, {}, &HeaderCell::fFirst));
        for (; header != headers.end() && (*header)->fFirst < part.fEnd; ++header) {
            AppendHeader(out, part, **header, row);
        }
    }
    out += "</w:tr>\n";
}

/// The names of row dimensions stand in the last row, right above what they name.
void HeaderRows::AppendCorner(std::string& out, const TablePart& part, int row) const {
    const auto append = [&](int level, int levels, std::string_view name) {
        AppendCellStart(out, {Sum(part.fvLevels, level, levels), levels, Merge::None, true, IsLast(row)});
        AppendParagraph(out, fPlan.Styles().fText, name, kKeepNext);
        out += kCellEnd;
    };
    if (!IsLast(row) || !HasCornerNames(fGrid)) return append(0, fPlan.CountLevels(), {});
    if (fPlan.AreLevelsJoined()) return append(0, 1, JoinCorner(fGrid));
    for (const CornerCell& cell : fGrid.fvCorner) {
        append(cell.fLevel, cell.fLevels, cell.fpName ? std::string_view(cell.fpName->fWords) : std::string_view());
    }
}

/// As much of a header as stands over the part's columns.
void HeaderRows::AppendHeader(std::string& out, const TablePart& part, const HeaderCell& header, int row) const {
    const int first = std::max(header.fFirst, part.fFirst);
    const int span = std::min(header.fFirst + header.fSpan, part.fEnd) - first;
    const bool isFirstRow = row == header.fLevel;
    const Merge merge = header.fLevels == 1 ? Merge::None : isFirstRow ? Merge::Begin : Merge::Continue;
    AppendCellStart(out, {Sum(part.fvColumns, first - part.fFirst, span), span, merge, true, IsLast(row)});
    const bool hasRule = span > 1 && !IsBlank(header) && header.fLevel + header.fLevels < fRows;
    const bool isOverText = span == 1 && !fPlan.IsFigures(first);
    const TableStyles& styles = fPlan.Styles();
    const std::string_view style = hasRule ? styles.fSpanner : isOverText ? styles.fText : styles.fColumnHeader;
    const std::string_view words = header.fpLabel && isFirstRow ? std::string_view(header.fpLabel->fWords) : "";
    const std::string_view direction = BeginsRightToLeft(words) ? "<w:keepNext/><w:bidi/>" : kKeepNext;
    AppendParagraphStart(out, style, direction);
    AppendRuns(out, words);
    if (isFirstRow) AppendMarks(out, fGrid, header.fvNotes);
    out.append(kParagraphEnd).append(kCellEnd);
}

}  // namespace hierfit::report::docx
