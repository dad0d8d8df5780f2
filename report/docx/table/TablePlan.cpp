#include "report/docx/table/TablePlan.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

#include "report/docx/Styles.h"
#include "report/docx/table/Cells.h"
#include "report/layout/CellContent.h"
#include "report/layout/NumberColumns.h"

namespace hierfit::report::docx {

namespace {

constexpr int kMostLevels = 20;
constexpr Room kJoinedRoom{2400, 5000};
constexpr double kMostOfFigure = 4000;  // what is wider is set as a text and broken
constexpr double kSlack = 20;           // for what programs round
constexpr double kMarkSize = 0.7;       // of a note's letter, to others
constexpr std::size_t kLongText = 400;  // bytes: it may not fit a page
constexpr std::size_t kShortLine = 20;  // bytes of a header's line at least
constexpr std::size_t kMostHeaderLines = 20;

std::span<Room> Slice(std::vector<Room>& rooms, int first, int count) {
    return std::span(rooms).subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
}

Room Sum(std::span<const Room> rooms) {
    return std::accumulate(rooms.begin(), rooms.end(), Room{}, [](const Room& sum, const Room& room) {
        return Room{sum.fLeast + room.fLeast, sum.fFull + room.fFull};
    });
}

/// Widths in a room: as wide as has a use, else at least as wide as must be, and each as much more of what it lacks.
std::vector<int> Allot(std::span<const Room> rooms, double width) {
    const Room sum = Sum(rooms);
    const double lack = sum.fFull - sum.fLeast;
    const double share = lack > 0 ? std::clamp((width - sum.fLeast) / lack, 0.0, 1.0) : 0.0;
    const double shrink = std::min(1.0, width / std::max(1.0, sum.fLeast));
    std::vector<int> widths;
    for (const Room& room : rooms) {
        const double wide = (room.fLeast + (room.fFull - room.fLeast) * share) * shrink;
        widths.push_back(std::max(1, static_cast<int>(wide)));
    }
    return widths;
}

std::vector<Room> SetIn(const TableStyles& styles, std::vector<Room> rooms) {
    const double more = 2 * styles.fMargin + kSlack;
    for (Room& room : rooms) room = {room.fLeast * styles.fScale + more, room.fFull * styles.fScale + more};
    return rooms;
}

}  // namespace

int TablePart::Width() const {
    return std::accumulate(fvColumns.begin(), fvColumns.end(), std::accumulate(fvLevels.begin(), fvLevels.end(), 0));
}

TablePlan::TablePlan(const Grid& grid)
    : fGrid(grid),
      fAreLevelsJoined(grid.fRowLevels > kMostLevels),
      fvColumns(static_cast<std::size_t>(grid.fColumns)),
      fvPlainLevels(fAreLevelsJoined ? 1 : static_cast<std::size_t>(grid.fRowLevels)),
      fvPlainRooms(static_cast<std::size_t>(grid.fColumns)) {
    MeasureCells();
    MeasureRowHeaders();
    MeasureColumnHeaders();
    ChooseSetting();
    if (grid.fRows > 0) MakeParts();
}

void TablePlan::Note(std::string_view words) { fPartsRows = fPartsRows || words.size() > kLongText; }

void TablePlan::MeasureCells() {
    const NumberColumns numbers(fGrid);
    for (int column = 0; column < fGrid.fColumns; ++column) {
        fvColumns[static_cast<std::size_t>(column)].fIsFigures = !numbers.IsText(column);
    }
    auto cell = fGrid.fvCells.begin();
    for (int row = 0; row < fGrid.fRows; ++row) {
        for (int column = 0; column < fGrid.fColumns; ++column) MeasureCell(column, *cell++);
    }
    for (std::size_t column = 0; column < fvColumns.size(); ++column) {
        Column& figures = fvColumns[column];
        const double width = figures.fAhead + figures.fBehind;
        figures.fIsFigures = figures.fIsFigures && width <= kMostOfFigure;
        const double held = std::min(width, kMostOfFigure);
        fvPlainRooms[column].Hold({held, held});
    }
}

void TablePlan::MeasureCell(int column, const DataCell& cell) {
    if (!cell.fpCell) return;
    const document::Text& content = cell.fpCell->fContent;
    Column& figures = fvColumns[static_cast<std::size_t>(column)];
    double marks = 0;
    for (const int note : cell.fvNotes) {
        marks += MeasureFigure(fGrid.fvNotes[static_cast<std::size_t>(note)].fLetter + ", ") * kMarkSize;
    }
    Note(content.fWords);
    if (!figures.fIsFigures || !IsNumber(content)) {
        Room room = MeasureText(content.fWords);
        room.fFull += marks;
        return fvPlainRooms[static_cast<std::size_t>(column)].Hold(room);
    }
    const std::string_view words = content.fWords;
    const std::size_t ahead = IntegerPartOf(words);
    figures.fAhead = std::max(figures.fAhead, MeasureFigure(words.substr(0, ahead)));
    figures.fBehind = std::max(figures.fBehind, MeasureFigure(words.substr(ahead)) + marks);
}

void TablePlan::MeasureRowHeaders() {
    for (const HeaderCell& header : fGrid.fvRowHeaders) {
        if (!header.fpLabel) continue;
        Note(header.fpLabel->fWords);
        if (!fAreLevelsJoined)
            Spread(Slice(fvPlainLevels, header.fLevel, header.fLevels), MeasureText(BindSign(header.fpLabel->fWords)));
    }
    if (fAreLevelsJoined) return fvPlainLevels.front().Hold(kJoinedRoom);
    for (const CornerCell& corner : fGrid.fvCorner) {
        if (corner.fpName)
            Spread(Slice(fvPlainLevels, corner.fLevel, corner.fLevels),
                   MeasureHeader(corner.fpName->fWords, 2 * corner.fLevels));
    }
}

void TablePlan::MeasureColumnHeaders() {
    std::vector<std::size_t> longest(static_cast<std::size_t>(std::max(fGrid.fColumnLevels, 1)));
    for (const CornerCell& corner : fGrid.fvCorner) {
        if (corner.fpName) longest.back() = std::max(longest.back(), corner.fpName->fWords.size());
    }
    for (const HeaderCell& header : fGrid.fvColumnHeaders) {
        if (!header.fpLabel) continue;
        std::size_t& length = longest[static_cast<std::size_t>(header.fLevel)];
        length = std::max(length, header.fpLabel->fWords.size());
        Spread(Slice(fvPlainRooms, header.fFirst, header.fSpan), MeasureHeader(header.fpLabel->fWords, header.fSpan));
    }
    std::size_t lines = 0;
    for (const std::size_t length : longest) lines += 1 + length / kShortLine;
    fRepeatsHeader = lines <= kMostHeaderLines;
}

/// Of the row headers: no more than half of the page, so that there is always room for a column.
double TablePlan::LevelsOnPage() const { return std::min(Sum(fvLevels).fLeast, WidthOf(fPage) / 2.0); }

bool TablePlan::DoesFit() const {
    const bool isPossible = CountLevels() + fGrid.fColumns <= kMostColumns;
    return isPossible && LevelsOnPage() + Sum(fvRooms).fLeast <= WidthOf(fPage);
}

void TablePlan::Set(Page page, const TableStyles& styles) {
    fPage = page;
    fpStyles = &styles;
    fvLevels = SetIn(styles, fvPlainLevels);
    fvRooms = SetIn(styles, fvPlainRooms);
}

/// Small letters rather than a turned page, and that rather than parts.
void TablePlan::ChooseSetting() {
    for (const Page page : {Page::Upright, Page::Turned}) {
        for (const TableStyles* styles : {&kPlainTable, &kSmallTable}) {
            Set(page, *styles);
            if (DoesFit()) return;
        }
    }
    Set(Page::Turned, kPlainTable);
}

void TablePlan::MakeParts() {
    const double room = WidthOf(fPage) - LevelsOnPage();
    for (int first = 0; first < fGrid.fColumns;) {
        const int end = EndOfPart(first, room);
        fvParts.push_back(MakePart(first, end));
        first = end;
    }
}

int TablePlan::EndOfPart(int first, double room) const {
    const int most = std::min(fGrid.fColumns, first + kMostColumns - CountLevels());
    double width = 0;
    int end = first;
    while (end < most) {
        width += fvRooms[static_cast<std::size_t>(end)].fLeast;
        if (end > first && width > room) break;
        ++end;
    }
    return end;
}

TablePart TablePlan::MakePart(int first, int end) const {
    const std::span<const Room> columns =
        std::span(fvRooms).subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
    const double width = WidthOf(fPage);
    const double taken = std::min(width, Sum(columns).fLeast);
    // Labels of rows get what they have a use for before headers of columns do.
    TablePart part{first, end, Allot(fvLevels, std::max(LevelsOnPage(), width - taken)), {}};
    part.fvColumns = Allot(columns, width - part.Width());
    return part;
}

int TablePlan::DecimalAt(int column, int width) const {
    const Column& figures = At(column);
    const double ahead = figures.fAhead * fpStyles->fScale;
    const double spare = width - 2 * fpStyles->fMargin - ahead - figures.fBehind * fpStyles->fScale;
    return static_cast<int>(std::max(0.0, spare / 2) + ahead);
}

}  // namespace hierfit::report::docx
