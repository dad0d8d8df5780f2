#include "report/text/TablePlan.h"

#include <algorithm>
#include <numeric>

namespace hierfit::report {

namespace {

constexpr int kHeaderWidth = 16;     // a header of one column is not wrapped to less
constexpr int kGroupWidth = 24;      // nor one of several to less
constexpr int kLeastLevelWidth = 8;  // a level of row headers
constexpr int kLeastTextWidth = 8;   // a column of texts
constexpr int kPixelsPerCharacter = 8;
constexpr int kMostLeastWidth = 40;  // what a table may ask for as least width of a column

int EndLevel(const HeaderCell& header) { return header.fLevel + header.fLevels; }

// Widths that sum up to a total at most, where narrow ones keep theirs and the others have equal shares.
std::vector<int> ShareOut(const std::vector<int>& widths, int total) {
    std::vector<std::size_t> order(widths.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return widths[a] < widths[b]; });
    std::vector<int> shares(widths.size());
    int left = static_cast<int>(widths.size());
    for (const std::size_t index : order) {
        shares[index] = std::min(widths[index], std::max(total / left, kLeastLevelWidth));
        total -= shares[index];
        --left;
    }
    return shares;
}

}  // namespace

TablePlan::TablePlan(const Grid& grid, int limit) : fGrid(grid), fLimit(limit) {
    MakeRowHeaders();
    MakeCells();
    MeasureColumns();
    MakeColumnHeaders();
}

const CellLines& TablePlan::Cell(int row, int column) const {
    return fvCells[static_cast<std::size_t>(row) * fvColumns.size() + static_cast<std::size_t>(column)];
}

void TablePlan::MakeRowHeaders() {
    for (const CornerCell& corner : fGrid.fvCorner) fvCorner.push_back(MakeCellLines(corner.fpName, {}, fGrid));
    fvRowHeaders.reserve(fGrid.fvRowHeaders.size());
    for (const HeaderCell& header : fGrid.fvRowHeaders) {
        fvRowHeaders.push_back(MakeCellLines(header.fpLabel, header.fvNotes, fGrid));
    }
    fvLevels.assign(static_cast<std::size_t>(fGrid.fRowLevels), 0);
    MeasureLevels();
    if (fLimit > 0) LimitLevels();
}

// Headers of one level first; those of several then widen their last level where they need more.
void TablePlan::MeasureLevels() {
    for (const bool single : {true, false}) {
        for (std::size_t i = 0; i < fvRowHeaders.size(); ++i) {
            const HeaderCell& header = fGrid.fvRowHeaders[i];
            if ((header.fLevels == 1) == single) WidenLevels(header.fLevel, header.fLevels, fvRowHeaders[i].fWidth);
        }
    }
    for (std::size_t i = 0; i < fvCorner.size(); ++i) {
        const CornerCell& corner = fGrid.fvCorner[i];
        fvCorner[i].Wrap(
            std::max({WidthOfLevels(corner.fLevel, corner.fLevels), kHeaderWidth, fvCorner[i].WidestWord()}));
        WidenLevels(corner.fLevel, corner.fLevels, fvCorner[i].fWidth);
    }
}

void TablePlan::LimitLevels() {
    const int allowed = fLimit * 3 / 5 - kGap * fGrid.fRowLevels;
    if (std::accumulate(fvLevels.begin(), fvLevels.end(), 0) <= allowed) return;
    fvLevels = ShareOut(fvLevels, allowed);
    for (std::size_t i = 0; i < fvRowHeaders.size(); ++i) {
        const HeaderCell& header = fGrid.fvRowHeaders[i];
        fvRowHeaders[i].Wrap(WidthOfLevels(header.fLevel, header.fLevels));
    }
    for (std::size_t i = 0; i < fvCorner.size(); ++i) {
        const CornerCell& corner = fGrid.fvCorner[i];
        fvCorner[i].Wrap(WidthOfLevels(corner.fLevel, corner.fLevels));
    }
    // Wrapped at blanks, they may need less than their share.
    fvLevels.assign(fvLevels.size(), 0);
    MeasureLevels();
}

int TablePlan::WidthOfLevels(int first, int count) const {
    const auto start = fvLevels.begin() + first;
    return std::accumulate(start, start + count, kGap * (count - 1));
}

void TablePlan::WidenLevels(int first, int count, int width) {
    const int more = width - WidthOfLevels(first, count);
    if (more > 0) fvLevels[static_cast<std::size_t>(first + count - 1)] += more;
}

int TablePlan::StartOfLevel(int level) const {
    return std::accumulate(fvLevels.begin(), fvLevels.begin() + level, kGap * level);
}

void TablePlan::MakeCells() {
    const int room = fLimit > 0 ? std::max(kLeastTextWidth, fLimit - StartOfData()) : 0;
    fvCells.reserve(fGrid.fvCells.size());
    for (const DataCell& cell : fGrid.fvCells) {
        const document::Text* text = cell.fpCell ? &cell.fpCell->fContent : nullptr;
        fvCells.push_back(MakeCellLines(text, cell.fvNotes, fGrid));
        fvCells.back().Wrap(room);
    }
}

void TablePlan::MeasureColumns() {
    fvColumns.resize(static_cast<std::size_t>(fGrid.fColumns));
    const int wanted = fGrid.fpTable->fMinDataColumnWidth.value_or(0) / kPixelsPerCharacter;
    const int least = std::min(wanted, fLimit > 0 ? fLimit / 4 : kMostLeastWidth);
    for (int column = 0; column < fGrid.fColumns; ++column) {
        MeasureColumn(column);
        Widen({column, column + 1}, least);
    }
}

void TablePlan::MeasureColumn(int column) {
    DataColumn& data = fvColumns[static_cast<std::size_t>(column)];
    bool hasPoints = false;
    for (int row = 0; row < fGrid.fRows; ++row) {
        const CellLines& cell = Cell(row, column);
        if (cell.fvLines.empty()) continue;
        if (!cell.fIsNumber) data.fIsText = true;
        if (cell.fIsNumber && !cell.fIsMissing && cell.fvLines[0].find('.') != std::string::npos) hasPoints = true;
    }
    for (int row = 0; row < fGrid.fRows; ++row) {
        CellLines& cell = fvCells[static_cast<std::size_t>(row) * fvColumns.size() + static_cast<std::size_t>(column)];
        // A missing number stands at the decimal signs, or below the units where there are none.
        if (cell.fIsMissing && !hasPoints) cell.fLeft = 1;
        data.fWidth = std::max(data.fWidth, cell.fWidth);
        if (!cell.fIsNumber) continue;
        data.fLeft = std::max(data.fLeft, cell.fLeft);
        data.fRight = std::max(data.fRight, cell.fWidth - cell.fLeft);
    }
    data.fWidth = std::max(data.fWidth, data.fLeft + data.fRight);
}

void TablePlan::MakeColumnHeaders() {
    const std::vector<HeaderCell>& headers = fGrid.fvColumnHeaders;
    fvHeadersAt.resize(static_cast<std::size_t>(fGrid.fColumnLevels));
    for (std::size_t i = 0; i < headers.size(); ++i) {
        fvColumnHeaders.push_back(MakeCellLines(headers[i].fpLabel, headers[i].fvNotes, fGrid));
        fvHeadersAt[static_cast<std::size_t>(EndLevel(headers[i]) - 1)].push_back(i);
    }
    for (std::vector<std::size_t>& level : fvHeadersAt) {
        std::sort(level.begin(), level.end(), [&](auto a, auto b) { return headers[a].fFirst < headers[b].fFirst; });
    }
    for (const bool single : {true, false}) {
        for (std::size_t i = 0; i < headers.size(); ++i) {
            if ((headers[i].fSpan == 1) == single) FitColumnHeader(headers[i], fvColumnHeaders[i]);
        }
    }
}

void TablePlan::FitColumnHeader(const HeaderCell& header, CellLines& lines) {
    const Block columns{header.fFirst, header.fFirst + header.fSpan};
    const int least = header.fSpan == 1 ? kHeaderWidth : kGroupWidth;
    int width = std::max({WidthOf(columns), least, lines.WidestWord()});
    if (fLimit > 0) width = std::min(width, std::max(kLeastTextWidth, fLimit - StartOfData()));
    lines.Wrap(width);
    Widen(columns, lines.fWidth);
}

int TablePlan::WidthOf(Block columns) const {
    int width = kGap * (columns.fEnd - columns.fFirst - 1);
    for (int column = columns.fFirst; column < columns.fEnd; ++column) width += Column(column).fWidth;
    return width;
}

void TablePlan::Widen(Block columns, int width) {
    int more = width - WidthOf(columns);
    for (int column = columns.fFirst; column < columns.fEnd && more > 0; ++column) {
        const int share = more / (columns.fEnd - column);
        fvColumns[static_cast<std::size_t>(column)].fWidth += share;
        more -= share;
    }
}

std::vector<Block> TablePlan::MakeBlocks() const {
    const std::vector<int> groups = FindGroups();
    std::vector<Block> blocks;
    for (int first = 0; first < fGrid.fColumns; first = blocks.back().fEnd)
        blocks.push_back({first, FindEnd(first, groups)});
    return blocks;
}

// For each column the first of the innermost header of several columns that it stands under.
std::vector<int> TablePlan::FindGroups() const {
    std::vector<int> groups(fvColumns.size(), 0);
    for (const HeaderCell& header : fGrid.fvColumnHeaders) {
        if (header.fSpan == 1) continue;
        const auto start = groups.begin() + header.fFirst;
        std::for_each(start, start + header.fSpan, [&](int& group) { group = std::max(group, header.fFirst); });
    }
    return groups;
}

int TablePlan::FindEnd(int first, const std::vector<int>& groups) const {
    int width = StartOfData() - kGap;
    for (int column = first; column < fGrid.fColumns; ++column) {
        width += kGap + Column(column).fWidth;
        if (fLimit <= 0 || width <= fLimit || column == first) continue;
        const int group = groups[static_cast<std::size_t>(column)];
        return group > first ? group : column;
    }
    return fGrid.fColumns;
}

}  // namespace hierfit::report
