#include "report/text/CellLines.h"

#include <algorithm>

#include "report/layout/CellContent.h"
#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

// "[a]", "[a,b]"
std::string SpellMarks(const std::vector<int>& notes, const Grid& grid) {
    std::string marks;
    for (const int note : notes)
        marks += (marks.empty() ? "[" : ",") + grid.fvNotes[static_cast<std::size_t>(note)].fLetter;
    return marks.empty() ? marks : marks + "]";
}

// Everything in front of the decimal sign, or of a percent sign or exponent where there is none.
int CountLeft(std::string_view words) { return MeasureWidth(words.substr(0, words.find_first_of(".eE%"))); }

int MeasureWidest(const std::vector<std::string>& lines) {
    int width = 0;
    for (const std::string& line : lines) width = std::max(width, MeasureWidth(line));
    return width;
}

}  // namespace

int CellLines::WidestWord() const {
    int width = 0;
    for (const std::string& line : fvLines) width = std::max(width, MeasureWidestWord(line));
    return width;
}

int CellLines::WidestPart() const {
    int width = 0;
    for (const std::string& line : fvLines) width = std::max(width, MeasureWidestPart(line));
    return width;
}

void CellLines::Wrap(int width) {
    if (width <= 0 || fWidth <= width) return;
    std::string text;
    for (const std::string& line : fvLines) text += (text.empty() ? "" : "\n") + line;
    fvLines = WrapLines(text, width);
    fWidth = MeasureWidest(fvLines);
}

CellLines MakeCellLines(const document::Text* text, const std::vector<int>& notes, const Grid& grid) {
    CellLines cell;
    if (!text) return cell;
    cell.fIsNumber = IsNumber(*text);
    cell.fIsMissing = text->fWords == ".";
    if (cell.fIsNumber) {
        cell.fLeft = CountLeft(text->fWords);
        cell.fIsPercentage = text->fWords.ends_with('%');
    }
    cell.fvLines = SplitLines(MakeVisible(text->fWords));
    cell.fvLines.back() += SpellMarks(notes, grid);
    cell.fWidth = MeasureWidest(cell.fvLines);
    return cell;
}

}  // namespace hierfit::report
