#include "tests/support/GridDrawing.h"

namespace hierfit::test {

namespace {

/// The grid's texts, headers and cells in one square.
class Drawing {
  public:
    explicit Drawing(const report::Grid& grid) : fGrid(grid) {
        const bool hasCornerLine = fGrid.fColumnLevels == 0 && !fGrid.fvCorner.empty();
        fTop = fGrid.fColumnLevels + (hasCornerLine ? 1 : 0);
        fvLines.assign(Size(fTop + fGrid.fRows), std::vector<std::string>(Size(fGrid.fRowLevels + fGrid.fColumns)));
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
        for (int row = 0; row < fGrid.fRows; ++row) {
            for (int column = 0; column < fGrid.fColumns; ++column) {
                Fill(fTop + row, 1, fGrid.fRowLevels + column, 1, Describe(fGrid.At(row, column)));
            }
        }
        return Print();
    }

  private:
    static std::size_t Size(int number) { return static_cast<std::size_t>(number); }

    void Fill(int line, int lines, int column, int columns, const std::string& text) {
        for (int i = 0; i < lines; ++i) {
            for (int k = 0; k < columns; ++k) {
                std::string& place = fvLines.at(Size(line + i)).at(Size(column + k));
                place += i == 0 && k == 0 ? text : k > 0 ? "<" : "^";
            }
        }
    }

    std::string Describe(const report::HeaderCell& header) const {
        std::string text = header.fpLabel ? header.fpLabel->fWords : "~";
        if (header.fIsDimensionName) text = "[" + text + "]";
        if (header.fIsGroup) text = "(" + text + ")";
        return text + DescribeNotes(header.fvNotes);
    }

    std::string Describe(const report::DataCell& cell) const {
        return cell.fpCell ? cell.fpCell->fContent.fWords + DescribeNotes(cell.fvNotes) : "";
    }

    std::string DescribeNotes(const std::vector<int>& notes) const {
        std::string text;
        for (const int note : notes) text += "*" + fGrid.fvNotes.at(Size(note)).fLetter;
        return text;
    }

    std::string Print() const {
        std::string text;
        for (const std::vector<std::string>& line : fvLines) {
            for (std::size_t column = 0; column < line.size(); ++column) {
                if (column > 0) text += line[column].empty() ? " |" : " | ";
                text += line[column];
            }
            text += '\n';
        }
        for (const report::Note& note : fGrid.fvNotes) text += note.fLetter + ": " + note.fpText->fWords + '\n';
        return text;
    }

    const report::Grid& fGrid;
    int fTop = 0;
    std::vector<std::vector<std::string>> fvLines;
};

}  // namespace

std::string DrawGrid(const report::Grid& grid) { return Drawing(grid).Draw(); }

}  // namespace hierfit::test
