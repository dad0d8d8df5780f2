#include "report/xlsx/sheets/SheetWidths.h"

#include <algorithm>
#include <numeric>

#include "report/layout/CellContent.h"
#include "report/text/VisibleText.h"

namespace hierfit::report::xlsx {

namespace {

constexpr double kLeast = 8;        // of a column of data
constexpr double kMostLabel = 48;   // of a level of row headers
constexpr double kMostText = 60;    // of a column of texts
constexpr double kMostHeader = 14;  // of a header that is not wrapped
constexpr double kMostGroup = 28;   // nor one over several columns
constexpr double kMostWord = 24;    // that a header does not part
constexpr double kAir = 3;          // between a cell's words and the next cell's
constexpr double kMostHeight = 409;
constexpr std::size_t kMostMeasured = 8192;  // bytes of a text; by then a row is as high as can be

double MeasureMarks(const std::vector<int>& notes) {
    return notes.empty() ? 0 : 2 * static_cast<double>(notes.size()) - 1;
}

double MeasureLabel(const HeaderCell& header) {
    return (header.fpLabel ? MeasureWidest(header.fpLabel->fWords) : 0) + MeasureMarks(header.fvNotes);
}

double MeasureWord(std::string_view words) {
    double width = 0;
    for (const std::string& line : SplitLines(MakeVisible(words.substr(0, kMostMeasured)))) {
        width = std::max<double>(width, MeasureWidestWord(line));
    }
    return std::min(width, kMostWord);
}

}  // namespace

double MeasureWidest(std::string_view words) {
    const auto isPlain = [](char c) { return c >= ' ' && c < '\x7F'; };
    if (std::ranges::all_of(words, isPlain)) return static_cast<double>(words.size());
    double width = 0;
    for (const std::string& line : SplitLines(MakeVisible(words.substr(0, kMostMeasured)))) {
        width = std::max<double>(width, MeasureWidth(line));
    }
    return width;
}

double MeasureHeight(std::string_view words, double width) {
    const bool hasLines = words.find('\n') != std::string_view::npos;
    if (!hasLines && static_cast<double>(words.size()) <= width) return 0;
    const std::string text = MakeVisible(words.substr(0, kMostMeasured));
    const std::size_t lines = WrapLines(text, std::max(1, static_cast<int>(width))).size();
    return lines < 2 ? 0 : std::min(kMostHeight, kLineHeight * static_cast<double>(lines));
}

SheetWidths::SheetWidths(const Grid& grid)
    : fvWidths(static_cast<std::size_t>(grid.fRowLevels + grid.fColumns)),
      fvTexts(static_cast<std::size_t>(grid.fColumns)) {
    MeasureLevels(grid);
    MeasureData(grid);
    MeasureHeaders(grid);
}

double SheetWidths::Sum(int firstColumn, int lastColumn) const {
    return std::accumulate(fvWidths.begin() + firstColumn, fvWidths.begin() + lastColumn + 1, 0.0);
}

void SheetWidths::Widen(int firstColumn, int lastColumn, double width) {
    const double missing = width - Sum(firstColumn, lastColumn);
    if (missing <= 0) return;
    for (int column = firstColumn; column <= lastColumn; ++column) {
        fvWidths[static_cast<std::size_t>(column)] += missing / (lastColumn - firstColumn + 1);
    }
}

void SheetWidths::MeasureLevels(const Grid& grid) {
    std::vector<double> spanning(fvWidths.size() + 1);  // by first level; nearly all of those reach the innermost
    for (const HeaderCell& header : grid.fvRowHeaders) {
        const double width = std::min(MeasureLabel(header), kMostLabel) + kAir;
        const auto level = static_cast<std::size_t>(header.fLevel);
        double& widest = header.fLevels == 1 ? fvWidths[level] : spanning[level];
        widest = std::max(widest, width);
    }
    for (const CornerCell& corner : grid.fvCorner) {
        if (!corner.fpName) continue;
        const double word = MeasureWord(corner.fpName->fWords);
        const double width = std::max(word, std::min(MeasureWidest(corner.fpName->fWords), kMostHeader)) + kAir;
        Widen(corner.fLevel, corner.fLevel + corner.fLevels - 1, width);
    }
    for (int level = grid.fRowLevels - 2; level >= 0; --level) {
        Widen(level, grid.fRowLevels - 1, spanning[static_cast<std::size_t>(level)]);
    }
}

void SheetWidths::MeasureData(const Grid& grid) {
    auto cell = grid.fvCells.begin();
    for (int row = 0; row < grid.fRows; ++row) {
        for (int column = 0; column < grid.fColumns; ++column, ++cell) {
            if (!cell->fpCell) continue;
            const document::Text& content = cell->fpCell->fContent;
            const bool isNumber = IsNumber(content);
            if (!isNumber) fvTexts[static_cast<std::size_t>(column)] = true;
            double& width = fvWidths[static_cast<std::size_t>(grid.fRowLevels + column)];
            width = std::max(width,
                             std::min(MeasureWidest(content.fWords) + MeasureMarks(cell->fvNotes), kMostText) + kAir);
        }
    }
}

void SheetWidths::MeasureHeaders(const Grid& grid) {
    for (int column = 0; column < grid.fColumns; ++column) {
        Widen(grid.fRowLevels + column, grid.fRowLevels + column, kLeast + kAir);
    }
    for (const bool isSingle : {true, false}) {
        for (const HeaderCell& header : grid.fvColumnHeaders) {
            if ((header.fSpan == 1) != isSingle || !header.fpLabel) continue;
            const double most = isSingle ? kMostHeader : kMostGroup;
            const double width = std::max(MeasureWord(header.fpLabel->fWords), std::min(MeasureLabel(header), most));
            const int first = grid.fRowLevels + header.fFirst;
            Widen(first, first + header.fSpan - 1, width + kAir);
        }
    }
}

}  // namespace hierfit::report::xlsx
