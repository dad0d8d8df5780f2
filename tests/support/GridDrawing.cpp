#include "tests/support/GridDrawing.h"

#include <map>

namespace hierfit::test {

namespace {

/// The grid's texts, headers and cells in one square.
class Drawing {
  public:
    explicit Drawing(const report::Grid& grid) : fGrid(grid) {
        const bool hasCornerLine = fGrid.fColumnLevels == 0 && !fGrid.fvCorner.empty();
        fTop = fGrid.fColumnLevels + (hasCornerLine ? 1 : 0);
    }

    std::string Draw() {
        for (const report::CornerCell& corner : fGrid.fvCorner) {
            Fill(fTop - 1, 1, corner.fLevel, corner.fLevels, corner.fpName ? "[" + corner.fpName->fWords + "]" : "");
        }
        for (const report::HeaderCell& header : fGrid.fvColumnHeaders) {
            Fill(header.fLevel, header.fLevels, fGrid.fRowLevels + header.fFirst, header.fSpan, Describe(header));
        }
        for (const report::HeaderCell& header : fGrid.fvRowHeaders) {
            Fill(fTop + header.fFirst, header.fSpan, header.fLevel, header.fLevels, Describe(header));
        }
        std::string text;
        for (int line = 0; line < fTop + fGrid.fRows; ++line) text += DrawLine(line);
        for (const report::Note& note : fGrid.fvNotes) text += note.fLetter + ": " + note.fpText->fWords + '\n';
        return text;
    }

  private:
    void Fill(int line, int lines, int column, int columns, const std::string& text) {
        for (int i = 0; i < lines; ++i) {
            for (int k = 0; k < columns; ++k) fTexts[{line + i, column + k}] += k > 0 ? "<" : i > 0 ? "^" : text;
        }
    }

    std::string DrawLine(int line) {
        std::string text;
        for (int column = 0; column < fGrid.fRowLevels + fGrid.fColumns; ++column) {
            std::string& place = fTexts[{line, column}];
            if (line >= fTop && column >= fGrid.fRowLevels) {
                const report::DataCell& cell = fGrid.At(line - fTop, column - fGrid.fRowLevels);
                if (cell.fpCell) place += cell.fpCell->fContent.fWords + DescribeNotes(cell.fvNotes);
            }
            text += (column == 0 ? "" : place.empty() ? " |" : " | ") + place;
        }
        return text + '\n';
    }

    std::string Describe(const report::HeaderCell& header) const {
        std::string text = header.fpLabel ? header.fpLabel->fWords : "~";
        if (header.fIsDimensionName) text = "[" + text + "]";
        if (header.fIsGroup) text = "(" + text + ")";
        return text + DescribeNotes(header.fvNotes);
    }

    std::string DescribeNotes(const std::vector<int>& notes) const {
        std::string text;
        for (const int note : notes) text += "*" + fGrid.fvNotes.at(static_cast<std::size_t>(note)).fLetter;
        return text;
    }

    const report::Grid& fGrid;
    int fTop;
    std::map<std::pair<int, int>, std::string> fTexts;  ///< by line and column
};

}  // namespace

std::string DrawGrid(const report::Grid& grid) { return Drawing(grid).Draw(); }

}  // namespace hierfit::test
