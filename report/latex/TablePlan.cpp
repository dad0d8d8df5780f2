#include "report/latex/TablePlan.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "host/unicode/Excerpt.h"
#include "report/charts/layout/text/TextWidth.h"
#include "report/layout/CellContent.h"

namespace hierfit::report::latex {

namespace {

// A line of 160 mm and a page of 247 mm hold so many em of DejaVu Sans at 10 and 8 pt. Of a document in another font a
// line of 345 pt and a page of 550 pt are known, which the class `article` has; in Computer Modern they hold as much as
// 38.5 and 61 em, and less in its small sizes, which are wider. Gaps do not shrink with the letters, so they count more
// there than they are.
constexpr Settings kOwnSettings = {{{45, 46, 1.2, false, false}, {56, 60, 1, true, false}, {86, 36, 1, true, true}}};
constexpr Settings kOtherSettings = {
    {{38.5, 36, 1.35, false, false}, {46, 46, 1.07, true, false}, {73, 26, 1.07, true, true}}};
constexpr std::size_t kNarrow = 1;  // the setting of a table in parts

constexpr double kLeastWidth = 12;  // em that a label is wrapped to, or less where it must be
constexpr double kLeastCloseWidth = 8.5;
constexpr double kMostText = 30;  // of a text among data
constexpr double kMostWord = 12;  // of a word in a header
constexpr double kLeastHeader = 5;
constexpr double kMostHeaderLines = 3;  // unless words are long
constexpr double kManyHeaderLines = 8;
constexpr double kMostOfHeader = 24;
constexpr double kLeastGroupHeader = 9;  // of several columns
constexpr double kMostAmongFigures = 6;  // of words in a column of figures
constexpr double kMark = 0.5;
constexpr double kRowHeadersInParts = 0.42;  // of the line

constexpr charts::TextStyle kEm{1, false};

double WidthOfLine(std::string_view words) { return charts::TextWidth(words, kEm); }

/// Of the widest of its lines.
double WidthOfText(std::string_view words) {
    double width = 0;
    for (std::size_t at = 0; at <= words.size();) {
        const std::size_t end = std::min(words.find('\n', at), words.size());
        width = std::max(width, WidthOfLine(words.substr(at, end - at)));
        at = end + 1;
    }
    return width;
}

double WidthOfMarks(const std::vector<int>& notes) { return kMark * static_cast<double>(notes.size()); }

/// Shrinks widths so that they sum up to a total: narrow ones keep theirs, the others have equal shares. False where
/// one would have less than a least.
bool ShareOut(std::vector<Column*> columns, double total, double least) {
    std::ranges::stable_sort(columns, {}, &Column::fNatural);
    auto left = static_cast<double>(columns.size());
    for (Column* column : columns) {
        column->fWidth = std::min(column->fNatural, total / left--);
        if (column->fWidth < std::min(column->fNatural, least)) return false;
        total -= column->fWidth;
    }
    return true;
}

}  // namespace

std::string ShownInCell(std::string_view words) {
    if (words.size() > kMostOfCell) return MakeVisible(unicode::Excerpt(words, kMostOfCell / 3));
    return MakeVisible(words);
}

std::string SpellMarks(const std::vector<int>& notes, const Grid& grid) {
    std::string marks;
    for (const int note : notes) {
        if (!marks.empty()) marks += ',';
        marks += grid.fvNotes[static_cast<std::size_t>(note)].fLetter;
    }
    return marks;
}

TablePlan::TablePlan(const Grid& grid, Page page)
    : fGrid(grid),
      fSettings(page == Page::Own ? kOwnSettings : kOtherSettings),
      fvLevels(static_cast<std::size_t>(grid.fRowLevels)),
      fvData(static_cast<std::size_t>(grid.fColumns)),
      fvHeadersAt(static_cast<std::size_t>(grid.fColumnLevels)) {
    SortHeaders();
    MeasureLevels();
    MeasureData();
    MeasureHeaders();
    const Block all{0, grid.fColumns};
    for (const Setting& setting : fSettings) {
        if (!Fit(setting, all, setting.fIsSmall ? kLeastCloseWidth : kLeastWidth)) continue;
        fpSetting = &setting;
        fvBlocks = {all};
        break;
    }
    if (!fpSetting) MakeBlocks();
    for (std::vector<Column>* columns : {&fvLevels, &fvData}) {
        for (Column& column : *columns) column.fIsWrapped = column.fIsWrapped || column.fWidth < column.fNatural;
    }
    fIsLong = CountLines() > fpSetting->fLines;
}

void TablePlan::MeasureLevels() {
    for (const CornerCell& corner : fGrid.fvCorner) {
        if (!corner.fpName) continue;
        Column& level = fvLevels[static_cast<std::size_t>(corner.fLevel)];
        level.fNatural = std::min(WidthOfText(ShownInCell(corner.fpName->fWords)), kMostWord);
    }
    for (const bool isSingle : {true, false}) {
        for (const HeaderCell& header : fGrid.fvRowHeaders) {
            if (!header.fpLabel || (header.fLevels == 1) != isSingle) continue;
            const auto last = fvLevels.begin() + header.fLevel + header.fLevels - 1;
            const std::string words = ShownInCell(header.fpLabel->fWords);
            double width = WidthOfText(words) + WidthOfMarks(header.fvNotes);
            for (auto level = fvLevels.begin() + header.fLevel; level < last; ++level) width -= level->fNatural;
            last->fNatural = std::max(last->fNatural, width);
            if (isSingle && words.find('\n') != std::string::npos) last->fIsWrapped = true;
        }
    }
}

void TablePlan::MeasureData() {
    struct Count {
        int fTexts = 0;
        int fFigures = 0;
        bool fHasValueLabels = false;
        double fWidest = 0;  ///< of what is no figure
        bool fHasLines = false;
    };
    std::vector<Count> counts(fvData.size());
    auto cell = fGrid.fvCells.begin();
    for (int row = 0; row < fGrid.fRows; ++row) {
        for (std::size_t at = 0; at < fvData.size(); ++at, ++cell) {
            if (!cell->fpCell) continue;
            const document::Text& text = cell->fpCell->fContent;
            Count& count = counts[at];
            const std::optional<Figure> figure = ReadFigure(text.fWords);
            ++(IsNumber(text) ? count.fFigures : count.fTexts);
            if (IsNumber(text) && figure) {
                fvData[at].fFigures.Add(*figure);
                if (!cell->fvNotes.empty()) fvData[at].fFigures.AddMarks(SpellMarks(cell->fvNotes, fGrid));
                continue;
            }
            if (!IsNumber(text) && std::holds_alternative<document::ValueSource>(text.fFrom))
                count.fHasValueLabels = true;
            const std::string words = ShownInCell(text.fWords);
            count.fWidest = std::max(count.fWidest, WidthOfText(words) + WidthOfMarks(cell->fvNotes));
            count.fHasLines = count.fHasLines || words.find('\n') != std::string::npos;
        }
    }
    for (std::size_t at = 0; at < fvData.size(); ++at) {
        const Count& count = counts[at];
        Column& column = fvData[at];
        column.fIsText = count.fHasValueLabels || count.fTexts >= count.fFigures || count.fHasLines ||
                         count.fWidest > kMostAmongFigures;
        column.fIsWrapped = column.fIsText && count.fHasLines;
        column.fNatural = count.fFigures > 0 ? std::max(count.fWidest, column.fFigures.Width()) : count.fWidest;
    }
}

void TablePlan::SortHeaders() {
    for (const HeaderCell& header : fGrid.fvColumnHeaders) {
        fvHeadersAt[static_cast<std::size_t>(header.fLevel + header.fLevels - 1)].push_back(&header);
    }
    for (auto& headers : fvHeadersAt) std::ranges::sort(headers, {}, &HeaderCell::fFirst);
}

std::span<const HeaderCell* const> TablePlan::HeadersAt(int level, Block block) const {
    const auto& headers = fvHeadersAt[static_cast<std::size_t>(level)];
    const auto endsBefore = [&](const HeaderCell* header) { return header->fFirst + header->fSpan <= block.fFirst; };
    const auto beginsBefore = [&](const HeaderCell* header) { return header->fFirst < block.fEnd; };
    const auto begin = std::partition_point(headers.begin(), headers.end(), endsBefore);
    return {begin, std::partition_point(begin, headers.end(), beginsBefore)};
}

void TablePlan::MeasureHeaders() {
    for (Column& column : fvData) column.fWidth = column.fNatural;
    for (const bool isSingle : {true, false}) {
        for (const HeaderCell& header : fGrid.fvColumnHeaders) {
            if (header.fpLabel && (header.fSpan == 1) == isSingle) MeasureHeader(header);
        }
    }
}

double TablePlan::RoomOf(const HeaderCell& header) const {
    double room = fSettings[kNarrow].fGap * (header.fSpan - 1);
    for (int column = header.fFirst; column < header.fFirst + header.fSpan; ++column) room += Data(column).fWidth;
    return room;
}

void TablePlan::MeasureHeader(const HeaderCell& header) {
    const double room = RoomOf(header);
    const double marks = WidthOfMarks(header.fvNotes);
    const std::string words = ShownInCell(header.fpLabel->fWords);
    const double full = WidthOfText(words);
    const double word = std::max(charts::LongestWord(words, kEm), full / kMostHeaderLines);
    const double least = std::max({room - marks, header.fSpan > 1 ? kLeastGroupHeader : kLeastHeader,
                                   std::min(word, kMostWord), std::min(full / kManyHeaderLines, kMostOfHeader)});
    const double width = charts::WidestLine(WrapHeader(*header.fpLabel, least), kEm) + marks;
    const double more = (width - room) / header.fSpan;
    if (more <= 0) return;
    const auto first = fvData.begin() + header.fFirst;
    std::for_each(first, first + header.fSpan, [more](Column& column) { column.fNatural = column.fWidth += more; });
}

std::vector<std::string> TablePlan::WrapHeader(const document::Text& label, double width) {
    constexpr double kTolerance = 0.01;
    return charts::WrapText(ShownInCell(label.fWords), width + kTolerance, kEm, kMostOfCell);
}

double TablePlan::FixedWidth(Block block, double gap) const {
    double width = gap * (fGrid.fRowLevels + block.fEnd - block.fFirst - 1);
    for (int column = block.fFirst; column < block.fEnd; ++column) {
        if (!Data(column).fIsText) width += Data(column).fNatural;
    }
    return width;
}

double TablePlan::WidthOf(Block block) const {
    double width = fpSetting->fGap * (fGrid.fRowLevels + block.fEnd - block.fFirst - 1);
    for (const Column& level : fvLevels) width += level.fWidth;
    for (int column = block.fFirst; column < block.fEnd; ++column) width += Data(column).fWidth;
    return width;
}

bool TablePlan::Fit(const Setting& setting, Block block, double least) {
    std::vector<Column*> shrinkable;
    for (Column& level : fvLevels) shrinkable.push_back(&level);
    for (int column = block.fFirst; column < block.fEnd; ++column) {
        Column& data = fvData[static_cast<std::size_t>(column)];
        if (data.fIsText) shrinkable.push_back(&data);
    }
    const double room = setting.fLine - FixedWidth(block, setting.fGap);
    return room >= 0 && ShareOut(std::move(shrinkable), room, least);
}

// Row headers stand in each part, so they get no more than a share; columns follow as long as there is room, parted
// between groups rather than in them.
void TablePlan::MakeBlocks() {
    const Setting& narrow = fSettings[kNarrow];
    fpSetting = &narrow;
    std::vector<Column*> levels;
    double headers = 0;
    for (Column& level : fvLevels) levels.push_back(&level);
    const double share = narrow.fLine * kRowHeadersInParts - narrow.fGap * fGrid.fRowLevels;
    ShareOut(levels, std::max(share, static_cast<double>(fGrid.fRowLevels)), 0);
    for (const Column& level : fvLevels) headers += level.fWidth + narrow.fGap;
    std::vector<int> groups(fvData.size(), 0);  // for each column the first of the innermost group that it is in
    for (const HeaderCell& header : fGrid.fvColumnHeaders) {
        if (header.fSpan == 1) continue;
        const auto first = groups.begin() + header.fFirst;
        std::for_each(first, first + header.fSpan, [&](int& group) { group = std::max(group, header.fFirst); });
    }
    const double room = narrow.fLine - headers;
    for (int first = 0; first < fGrid.fColumns; first = fvBlocks.back().fEnd) {
        double width = -narrow.fGap;
        int end = first;
        for (; end < fGrid.fColumns; ++end) {
            Column& column = fvData[static_cast<std::size_t>(end)];
            column.fWidth = std::min({column.fNatural, column.fIsText ? kMostText : room, room});
            width += narrow.fGap + column.fWidth;
            if (width > room && end > first) break;
        }
        if (end < fGrid.fColumns) {
            const int group = groups[static_cast<std::size_t>(end)];
            if (group > first) end = group;
        }
        fvBlocks.push_back({first, end});
    }
}

int TablePlan::CountLines() const {
    std::vector<int> lines(static_cast<std::size_t>(fGrid.fRows), 1);
    const auto count = [&lines](int row, const Column& column, std::string_view words) {
        if (!column.fIsWrapped || column.fWidth <= 0) return;
        const double full = WidthOfLine(ShownInCell(words)) / column.fWidth;
        const int breaks = static_cast<int>(std::ranges::count(words, '\n'));
        int& most = lines[static_cast<std::size_t>(row)];
        most = std::max(most, static_cast<int>(std::ceil(full)) + breaks);
    };
    for (const HeaderCell& header : fGrid.fvRowHeaders) {
        if (header.fpLabel && header.fLevels == 1) count(header.fFirst, Level(header.fLevel), header.fpLabel->fWords);
    }
    for (int column = 0; column < fGrid.fColumns; ++column) {
        if (!Data(column).fIsWrapped) continue;
        for (int row = 0; row < fGrid.fRows; ++row) {
            if (const document::Cell* cell = fGrid.At(row, column).fpCell)
                count(row, Data(column), cell->fContent.fWords);
        }
    }
    double notes = 0;
    const auto add = [&](const document::Text& text) {
        if (text.fWords.size() <= kMostOfCell) notes += std::ceil(WidthOfLine(text.fWords) / fpSetting->fLine);
    };
    for (const Note& note : fGrid.fvNotes) add(*note.fpText);
    for (const document::Text& text : fGrid.fpTable->fvCaptions) add(text);
    for (const document::Text& text : fGrid.fpTable->fvNotes) add(text);
    std::vector<std::size_t> heads(fvHeadersAt.size(), 1);
    for (std::size_t level = 0; level < heads.size(); ++level) {
        for (const HeaderCell* header : fvHeadersAt[level]) {
            if (header->fpLabel)
                heads[level] = std::max(heads[level], WrapHeader(*header->fpLabel, RoomOf(*header)).size());
        }
    }
    const auto head = static_cast<int>(std::accumulate(heads.begin(), heads.end(), std::size_t{0}));
    return std::accumulate(lines.begin(), lines.end(), static_cast<int>(notes) + head);
}

}  // namespace hierfit::report::latex
