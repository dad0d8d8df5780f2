#include "report/text/TablePlan.h"

#include <algorithm>
#include <numeric>

namespace hierfit::report {

namespace {

constexpr int kHeaderWidth = 16;      // a header of one column is not wrapped to less
constexpr int kGroupWidth = 24;       // nor one of several to less
constexpr int kCloseGroupWidth = 16;  // or, where it must be, to less than this
constexpr int kLeastLevelWidth = 8;   // a level of row headers
constexpr int kLeastLabelWidth = 12;  // one that is wrapped for the sake of more columns
constexpr int kLeastTextWidth = 8;    // a column of texts
constexpr int kPixelsPerCharacter = 8;
constexpr int kMostLeastWidth = 40;  // what a table may ask for as least width of a column

// From loose to close. Headers are wrapped first, since that costs a line or two; wrapped row labels cost one a row.
constexpr Density kDensities[] = {{}, {2, true, false}, {1, true, false}, {2, true, true}, {1, true, true}};

int EndLevel(const HeaderCell& header) { return header.fLevel + header.fLevels; }

int Sum(const std::vector<int>& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

// Widths that sum up to a total at most, where narrow ones keep theirs and the others have equal shares, and none less
// than its least.
std::vector<int> ShareOut(const std::vector<int>& widths, int total, const std::vector<int>& least) {
    std::vector<std::size_t> order(widths.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return widths[a] < widths[b]; });
    std::vector<int> shares(widths.size());
    int left = static_cast<int>(widths.size());
    for (const std::size_t index : order) {
        shares[index] = std::min(widths[index], std::max(total / left, least[index]));
        total -= shares[index];
        --left;
    }
    return shares;
}

/// Widths of levels of row headers, with a gap between two.
class Levels {
  public:
    Levels(std::vector<int>& widths, int gap) : fvWidths(widths), fGap(gap) {}

    int WidthOf(int first, int count) const {
        const auto start = fvWidths.begin() + first;
        return std::accumulate(start, start + count, fGap * (count - 1));
    }

    /// What covers several widens the last.
    void Widen(int first, int count, int width) {
        const int more = width - WidthOf(first, count);
        if (more > 0) fvWidths[static_cast<std::size_t>(first + count - 1)] += more;
    }

    /// Row headers of one level first; those of several then widen where they need more.
    template <typename Measure>
    void WidenFor(const std::vector<HeaderCell>& headers, Measure measure) {
        for (const bool single : {true, false}) {
            for (std::size_t i = 0; i < headers.size(); ++i) {
                if ((headers[i].fLevels == 1) == single) Widen(headers[i].fLevel, headers[i].fLevels, measure(i));
            }
        }
    }

  private:
    std::vector<int>& fvWidths;
    int fGap;
};

}  // namespace

TablePlan::TablePlan(const Grid& grid, int limit, Density density) : fGrid(grid), fLimit(limit), fDensity(density) {
    MakeRowHeaders(limit * 3 / 5);
    MakeCells();
    MeasureColumns();
    MakeColumnHeaders();
    if (density.fWrapsRowLabels) FitRowHeaders();
}

const CellLines& TablePlan::Cell(int row, int column) const {
    return fvCells[static_cast<std::size_t>(row) * fvColumns.size() + static_cast<std::size_t>(column)];
}

void TablePlan::MakeRowHeaders(int room) {
    fvCorner.clear();
    for (const CornerCell& corner : fGrid.fvCorner) fvCorner.push_back(MakeCellLines(corner.fpName, {}, fGrid));
    fvRowHeaders.clear();
    fvRowHeaders.reserve(fGrid.fvRowHeaders.size());
    for (const HeaderCell& header : fGrid.fvRowHeaders) {
        fvRowHeaders.push_back(MakeCellLines(header.fpLabel, header.fvNotes, fGrid));
    }
    MeasureLevels();
    if (fLimit > 0) LimitLevels(room - fDensity.fGap * fGrid.fRowLevels);
}

void TablePlan::MeasureLevels() {
    fvLevels.assign(static_cast<std::size_t>(fGrid.fRowLevels), 0);
    Levels levels(fvLevels, fDensity.fGap);
    levels.WidenFor(fGrid.fvRowHeaders, [this](std::size_t header) { return fvRowHeaders[header].fWidth; });
    const int least = fDensity.fWrapsHeaders ? 0 : kHeaderWidth;
    for (std::size_t i = 0; i < fvCorner.size(); ++i) {
        const CornerCell& corner = fGrid.fvCorner[i];
        fvCorner[i].Wrap(std::max({levels.WidthOf(corner.fLevel, corner.fLevels), least, fvCorner[i].WidestWord()}));
        levels.Widen(corner.fLevel, corner.fLevels, fvCorner[i].fWidth);
    }
}

void TablePlan::LimitLevels(int room) {
    if (Sum(fvLevels) <= room) return;
    fvLevels =
        ShareOut(fvLevels, room,
                 fDensity.fWrapsRowLabels ? FindLeastLevels() : std::vector<int>(fvLevels.size(), kLeastLevelWidth));
    const Levels levels(fvLevels, fDensity.fGap);
    for (std::size_t i = 0; i < fvRowHeaders.size(); ++i) {
        const HeaderCell& header = fGrid.fvRowHeaders[i];
        fvRowHeaders[i].Wrap(levels.WidthOf(header.fLevel, header.fLevels));
    }
    for (std::size_t i = 0; i < fvCorner.size(); ++i) {
        const CornerCell& corner = fGrid.fvCorner[i];
        fvCorner[i].Wrap(levels.WidthOf(corner.fLevel, corner.fLevels));
    }
    MeasureLevels();  // Wrapped at blanks, they may need less than their share.
}

// Leaves to the row headers what the widest block does not need, if they were as narrow as can be.
void TablePlan::FitRowHeaders() {
    const int gaps = fDensity.fGap * fGrid.fRowLevels;
    int widest = 0;
    for (const Block& block : MakeBlocks(Sum(FindLeastLevels()) + gaps)) widest = std::max(widest, WidthOf(block));
    MakeRowHeaders(std::min(fLimit - widest, fLimit * 3 / 5));
}

// Widths at which no label is broken within its parts.
std::vector<int> TablePlan::FindLeastLevels() const {
    std::vector<int> least(fvLevels.size());
    Levels levels(least, fDensity.fGap);
    levels.WidenFor(fGrid.fvRowHeaders, [this](std::size_t header) {
        const CellLines& label = fvRowHeaders[header];
        return std::max(label.WidestPart(), std::min(label.fWidth, kLeastLabelWidth));
    });
    for (std::size_t i = 0; i < fvCorner.size(); ++i) {
        levels.Widen(fGrid.fvCorner[i].fLevel, fGrid.fvCorner[i].fLevels, fvCorner[i].WidestWord());
    }
    return least;
}

int TablePlan::StartOfLevel(int level) const {
    return std::accumulate(fvLevels.begin(), fvLevels.begin() + level, fDensity.fGap * level);
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
    const int most = fDensity.fWrapsHeaders ? 0 : fLimit > 0 ? fLimit / 4 : kMostLeastWidth;
    for (int column = 0; column < fGrid.fColumns; ++column) {
        MeasureColumn(column);
        Widen({column, column + 1}, std::min(wanted, most));
    }
}

void TablePlan::MeasureColumn(int column) {
    DataColumn& data = fvColumns[static_cast<std::size_t>(column)];
    bool hasPoints = false;
    for (int row = 0; row < fGrid.fRows; ++row) {
        const CellLines& cell = Cell(row, column);
        if (cell.fvLines.empty()) continue;
        if (!cell.fIsNumber) data.fIsText = true;
        const bool isNumber = cell.fIsNumber && !cell.fIsMissing && !cell.fIsPercentage;
        if (isNumber && cell.fvLines[0].find('.') != std::string::npos) hasPoints = true;
    }
    for (int row = 0; row < fGrid.fRows; ++row) {
        CellLines& cell = fvCells[static_cast<std::size_t>(row) * fvColumns.size() + static_cast<std::size_t>(column)];
        // A missing number stands at the decimal signs, or below the units where there are none.
        if (cell.fIsMissing && !hasPoints) cell.fLeft = 1;
        data.fWidth = std::max(data.fWidth, cell.fWidth);
        if (!cell.fIsNumber) continue;
        NumberRoom& room = cell.fIsPercentage ? data.fPercentages : data.fNumbers;
        room.fLeft = std::max(room.fLeft, cell.fLeft);
        room.fRight = std::max(room.fRight, cell.fWidth - cell.fLeft);
    }
    data.fWidth = std::max({data.fWidth, data.fNumbers.Width(), data.fPercentages.Width()});
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

int TablePlan::LeastWidthOf(const HeaderCell& header) const {
    if (fDensity.fWrapsHeaders) return header.fSpan == 1 ? 0 : kCloseGroupWidth;
    return header.fSpan == 1 ? kHeaderWidth : kGroupWidth;
}

void TablePlan::FitColumnHeader(const HeaderCell& header, CellLines& lines) {
    const Block columns{header.fFirst, header.fFirst + header.fSpan};
    int width = std::max({WidthOf(columns), LeastWidthOf(header), lines.WidestWord()});
    if (fLimit > 0) width = std::min(width, std::max(kLeastTextWidth, fLimit - StartOfData()));
    lines.Wrap(width);
    Widen(columns, lines.fWidth);
}

int TablePlan::WidthOf(Block columns) const {
    int width = fDensity.fGap * (columns.fEnd - columns.fFirst - 1);
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

std::vector<Block> TablePlan::MakeBlocks(int startOfData) const {
    const std::vector<int> groups = FindGroups();
    std::vector<Block> blocks;
    for (int first = 0; first < fGrid.fColumns; first = blocks.back().fEnd)
        blocks.push_back({first, FindEnd(first, startOfData, groups)});
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

int TablePlan::FindEnd(int first, int startOfData, const std::vector<int>& groups) const {
    int width = startOfData - fDensity.fGap;
    for (int column = first; column < fGrid.fColumns; ++column) {
        width += fDensity.fGap + Column(column).fWidth;
        if (fLimit <= 0 || width <= fLimit || column == first) continue;
        const int group = groups[static_cast<std::size_t>(column)];
        return group > first ? group : column;
    }
    return fGrid.fColumns;
}

std::unique_ptr<const TablePlan> MakePlan(const Grid& grid, int limit) {
    std::unique_ptr<const TablePlan> plan;
    std::size_t blocks = 0;
    for (const Density& density : kDensities) {
        auto next = std::make_unique<const TablePlan>(grid, limit, density);
        const std::size_t count = next->MakeBlocks().size();
        if (plan && count >= blocks) continue;
        plan = std::move(next);
        blocks = count;
        if (blocks <= 1) break;
    }
    return plan;
}

}  // namespace hierfit::report
