#include "report/xlsx/sheets/TableSheet.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "report/xlsx/cells/CellRanges.h"
#include "report/xlsx/cells/CellText.h"
#include "report/xlsx/sheets/SheetWidths.h"

namespace hierfit::report::xlsx {

namespace {

constexpr double kNarrowPage = 92;      // characters of a page upright
constexpr double kWidePage = 140;       // and across
constexpr double kLeastScale = 0.45;    // a page is not made smaller
constexpr double kLeastParagraph = 72;  // characters of the lines below a table
constexpr double kMostParagraph = 110;
constexpr double kEmptyColumn = 8.43;       // a column without a width of its own
constexpr double kMostFrozen = 70;          // characters of row headers that stay in sight
constexpr std::size_t kLargeTable = 10000;  // cells
constexpr int kTextIndent = 1;              // keeps a column of texts apart from figures to its left
constexpr int kTitleRow = 0;
constexpr int kFirstHeaderRow = 1;

/// Cells of the paragraphs above and below a table.
struct ParagraphRoom {
    int fLastColumn = 0;
    double fWidth = 0;
};

ParagraphRoom FindRoom(const SheetWidths& widths) {
    ParagraphRoom room{-1, 0};
    while (room.fWidth < kLeastParagraph ||
           (room.fLastColumn + 1 < widths.CountColumns() && room.fWidth < kMostParagraph)) {
        ++room.fLastColumn;
        room.fWidth += room.fLastColumn < widths.CountColumns() ? widths.Of(room.fLastColumn) : kEmptyColumn;
    }
    return room;
}

class TableWriter {
  public:
    TableWriter(SheetWriter writer, const Grid& grid)
        : fWriter(std::move(writer)),
          fGrid(grid),
          fWidths(grid),
          fRoom(FindRoom(fWidths)),
          fvMarkedEmpty(grid.fvNotes.size()),
          fHeaderRows(CountHeaderRows(grid)) {}

    static int CountHeaderRows(const Grid& grid) {
        const bool hasNames =
            std::ranges::any_of(grid.fvCorner, [](const CornerCell& corner) { return corner.fpName; });
        return std::max(grid.fColumnLevels, hasNames ? 1 : 0);
    }

    void Put(BookParts& parts, std::string_view title) {
        SetPage();
        fWriter.PutParagraph(kTitleRow, fRoom.fLastColumn, fRoom.fWidth, title, {.fIsBold = true});
        if (fGrid.fRows > 0) {
            PutHeaders();
            PutRows(parts.fLooks);
        }
        PutBelow();
    }

  private:
    void SetPage() {
        const int columns = fWidths.CountColumns();
        const double width = columns > 0 ? fWidths.Sum(0, columns - 1) : 0;
        const double frozen = fGrid.fRowLevels > 0 ? fWidths.Sum(0, fGrid.fRowLevels - 1) : 0;
        Page page;
        page.fIsWide = width > kNarrowPage;
        page.fFitsWidth = width * kLeastScale <= kWidePage;
        if (fGrid.fRows > 0) {
            page.fFirstTitleRow = kFirstHeaderRow;
            page.fFrozenRows = kFirstHeaderRow + fHeaderRows;
            page.fFrozenColumns = frozen <= kMostFrozen ? fGrid.fRowLevels : 0;
        }
        fWriter.GetSheet().SetPage(page);
        for (int column = 0; column < columns; ++column) fWriter.GetSheet().SetWidth(column, fWidths.Of(column));
    }

    // A header of several levels stands on the lowest of them.
    static int RowOf(const HeaderCell& header) { return header.fLevel + header.fLevels - 1; }

    Look LookOfHeader(int level) const {
        Look look{.fIsBold = true, .fWraps = true};
        if (level == 0) look.fAbove = Rule::Thick;
        if (level == fHeaderRows - 1) look.fBelow = Rule::Thin;
        return look;
    }

    double WidthOf(const HeaderCell& header) const {
        const int first = fGrid.fRowLevels + header.fFirst;
        return fWidths.Sum(first, first + header.fSpan - 1);
    }

    static std::string WordsOf(const HeaderCell& header) { return header.fpLabel ? header.fpLabel->fWords : ""; }

    void PutHeaders() {
        std::vector<std::vector<const HeaderCell*>> levels(static_cast<std::size_t>(fHeaderRows));
        for (const HeaderCell& header : fGrid.fvColumnHeaders) {
            levels[static_cast<std::size_t>(RowOf(header))].push_back(&header);
        }
        for (int level = 0; level < fHeaderRows; ++level) {
            std::vector<const HeaderCell*>& headers = levels[static_cast<std::size_t>(level)];
            std::ranges::sort(headers, {}, &HeaderCell::fFirst);
            SetHeight(level, headers);
            PutCorner(level);
            PutLevel(level, headers);
        }
    }

    void SetHeight(int level, const std::vector<const HeaderCell*>& headers) {
        double height = 0;
        for (const HeaderCell* header : headers) {
            height = std::max(height, MeasureHeight(WordsOf(*header), WidthOf(*header)));
        }
        if (level == fHeaderRows - 1) {
            for (const CornerCell& corner : fGrid.fvCorner) {
                if (!corner.fpName) continue;
                const double width = fWidths.Sum(corner.fLevel, corner.fLevel + corner.fLevels - 1);
                height = std::max(height, MeasureHeight(corner.fpName->fWords, width));
            }
        }
        if (height > 0) fWriter.GetSheet().SetHeight(kFirstHeaderRow + level, height);
    }

    // The names stand in the last row, right above what they name.
    void PutCorner(int level) {
        const Look look = LookOfHeader(level);
        const int row = kFirstHeaderRow + level;
        int next = 0;
        if (level == fHeaderRows - 1) {
            for (const CornerCell& corner : fGrid.fvCorner) {
                const int last = corner.fLevel + corner.fLevels - 1;
                if (corner.fpName) fWriter.PutWide(row, corner.fLevel, last, corner.fpName->fWords, look);
                if (!corner.fpName) fWriter.PutBlanks(row, corner.fLevel, last, look);
                next = last + 1;
            }
        }
        fWriter.PutBlanks(row, next, fGrid.fRowLevels - 1, look);
    }

    void PutLevel(int level, const std::vector<const HeaderCell*>& headers) {
        int next = 0;
        for (const HeaderCell* header : headers) {
            PutBlankHeaders(level, next, header->fFirst - 1);
            PutHeader(level, *header);
            next = header->fFirst + header->fSpan;
        }
        PutBlankHeaders(level, next, fGrid.fColumns - 1);
    }

    void PutBlankHeaders(int level, int firstColumn, int lastColumn) {
        fWriter.PutBlanks(kFirstHeaderRow + level, fGrid.fRowLevels + firstColumn, fGrid.fRowLevels + lastColumn,
                          LookOfHeader(level));
    }

    void PutHeader(int level, const HeaderCell& header) {
        Look look = LookOfHeader(level);
        const int row = kFirstHeaderRow + level;
        const int column = fGrid.fRowLevels + header.fFirst;
        const std::string marks = SpellMarks(header.fvNotes, fGrid);
        if (header.fSpan == 1) {
            look.fAlign = fWidths.IsText(header.fFirst) ? Align::Left : Align::Right;
            look.fIndent = fWidths.IsText(header.fFirst) ? kTextIndent : 0;
            if (header.fpLabel) return fWriter.PutText(row, column, *header.fpLabel, marks, look);
            return fWriter.PutBlanks(row, column, column, look);
        }
        look.fAlign = Align::Center;
        if (header.fpLabel && look.fBelow == Rule::None) look.fBelow = Rule::Thin;
        fWriter.PutWide(row, column, column + header.fSpan - 1, WordsOf(header) + marks, look);
    }

    void PutRows(Looks& looks) {
        auto cell = fGrid.fvCells.begin();
        auto header = fGrid.fvRowHeaders.begin();
        for (int row = 0; row < fGrid.fRows; ++row) {
            auto end = header;
            while (end != fGrid.fvRowHeaders.end() && end->fFirst == row) ++end;
            PutRow(row, {header, end}, {cell, cell + fGrid.fColumns}, looks);
            header = end;
            cell += fGrid.fColumns;
        }
    }

    using Headers = std::span<const HeaderCell>;
    using Cells = std::span<const DataCell>;

    void PutRow(int row, Headers headers, Cells cells, Looks& looks) {
        const int sheetRow = kFirstHeaderRow + fHeaderRows + row;
        const double height = MeasureRow(headers, cells);
        if (height > 0) fWriter.GetSheet().SetHeight(sheetRow, height);
        const Look rowLook{.fIsTop = height > 0,
                           .fAbove = row == 0 && fHeaderRows == 0 ? Rule::Thick : Rule::None,
                           .fBelow = row + 1 == fGrid.fRows ? Rule::Thick : Rule::None};
        PutRowHeaders(sheetRow, headers, rowLook);
        for (int column = 0; column < fGrid.fColumns; ++column) {
            PutCell(sheetRow, fGrid.fRowLevels + column, cells[static_cast<std::size_t>(column)], rowLook, looks);
        }
    }

    double MeasureRow(Headers headers, Cells cells) const {
        double height = 0;
        for (const HeaderCell& header : headers) {
            if (!header.fpLabel) continue;
            const double width = fWidths.Sum(header.fLevel, header.fLevel + header.fLevels - 1);
            height = std::max(height, MeasureHeight(header.fpLabel->fWords, width));
        }
        for (int column = 0; column < fGrid.fColumns; ++column) {
            const document::Cell* cell = cells[static_cast<std::size_t>(column)].fpCell;
            if (!fWidths.IsText(column) || !cell) continue;
            height = std::max(
                height, MeasureHeight(cell->fContent.fWords, fWidths.Of(fGrid.fRowLevels + column) - kTextIndent));
        }
        return height;
    }

    // A header of several rows stands in the first of them.
    void PutRowHeaders(int row, Headers headers, const Look& rowLook) {
        int next = 0;
        const auto putBlanks = [&](int end) {
            if (HasRule(rowLook)) fWriter.PutBlanks(row, next, end - 1, rowLook);
        };
        for (const HeaderCell& header : headers) {
            putBlanks(header.fLevel);
            next = header.fLevel;
            if (!header.fpLabel) continue;
            Look look = rowLook;
            look.fWraps = NeedsWrap(header);
            fWriter.PutText(row, header.fLevel, *header.fpLabel, SpellMarks(header.fvNotes, fGrid), look);
            ++next;
        }
        putBlanks(fGrid.fRowLevels);
    }

    bool NeedsWrap(const HeaderCell& header) const {
        return header.fLevels == 1 && MeasureHeight(header.fpLabel->fWords, fWidths.Of(header.fLevel)) > 0;
    }

    void PutCell(int row, int column, const DataCell& cell, const Look& rowLook, Looks& looks) {
        const auto number = cell.fpCell ? NumberOf(cell.fpCell->fContent) : std::nullopt;
        if (number && std::isfinite(*number)) {
            const std::string marks = SpellMarks(cell.fvNotes, fGrid);
            const int code = looks.GetCodes().Find(*number, cell.fpCell->fContent.fWords, marks);
            return fWriter.GetSheet().PutNumber(row, column, *number, looks.OfNumber(code, rowLook));
        }
        if (cell.fpCell && !number) {
            const document::Text& text = cell.fpCell->fContent;
            Look look = rowLook;
            look.fIndent = kTextIndent;
            look.fWraps = MeasureHeight(text.fWords, fWidths.Of(column) - kTextIndent) > 0;
            return fWriter.PutWords(row, column, text.fWords + SpellMarks(cell.fvNotes, fGrid), look);
        }
        // A mark would be a text where a figure is missing: its note names the cell.
        for (const int note : cell.fvNotes) fvMarkedEmpty[static_cast<std::size_t>(note)].Add(row, column);
        if (HasRule(rowLook)) fWriter.PutBlanks(row, column, column, rowLook);
    }

    static bool HasRule(const Look& rowLook) { return rowLook.fAbove != Rule::None || rowLook.fBelow != Rule::None; }

    void PutBelow() {
        int row = fGrid.fRows > 0 ? kFirstHeaderRow + fHeaderRows + fGrid.fRows : kFirstHeaderRow;
        const auto put = [&](const std::string& words) {
            fWriter.PutParagraph(row++, fRoom.fLastColumn, fRoom.fWidth, words, {});
        };
        for (const document::Text& caption : fGrid.fpTable->fvCaptions) put(caption.fWords);
        for (const document::Text& note : fGrid.fpTable->fvNotes) put(note.fWords);
        for (std::size_t at = 0; at < fGrid.fvNotes.size(); ++at) {
            const Note& note = fGrid.fvNotes[at];
            const std::string cells = fvMarkedEmpty[at].Spell();
            put(SpellMark(note) + " " + note.fpText->fWords + (cells.empty() ? "" : " (empty: " + cells + ")"));
        }
    }

    SheetWriter fWriter;
    const Grid& fGrid;
    SheetWidths fWidths;
    ParagraphRoom fRoom;
    std::vector<CellRanges> fvMarkedEmpty;  ///< for each note the empty cells that it is for
    int fHeaderRows;
};

std::string Exceed(long count, const char* what, int most) {
    return std::to_string(count) + " " + what + ", and a sheet holds " + std::to_string(most);
}

}  // namespace

std::optional<std::string> PutTable(BookParts& parts, const std::string& name, const document::Table& table,
                                    std::string_view title) {
    const Grid grid = MakeGrid(table);
    const long columns = static_cast<long>(grid.fRowLevels) + grid.fColumns;
    if (columns > kMostColumns) return Exceed(columns, "columns", kMostColumns);
    const std::size_t texts = table.fvCaptions.size() + table.fvNotes.size() + grid.fvNotes.size();
    const long rows = 1L + TableWriter::CountHeaderRows(grid) + grid.fRows + static_cast<long>(texts);
    if (rows > kMostRows) return Exceed(rows, "rows", kMostRows);
    Sheet* sheet = parts.fBook.AddSheet(name, grid.fvCells.size() >= kLargeTable);
    if (sheet) TableWriter({parts, *sheet, name}, grid).Put(parts, title);
    return {};
}

}  // namespace hierfit::report::xlsx
