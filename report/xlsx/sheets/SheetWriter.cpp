#include "report/xlsx/sheets/SheetWriter.h"

#include <cmath>
#include <limits>

#include "host/SystemMissing.h"
#include "report/layout/CellContent.h"
#include "report/xlsx/cells/CellText.h"
#include "report/xlsx/sheets/SheetWidths.h"

namespace hierfit::report::xlsx {

namespace {

constexpr double kLargestNumber = 9.99999999999999e307;  // that a spreadsheet knows

/// "B5"
std::string NameCell(int row, int column) {
    std::string name;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return name + std::to_string(row + 1);
}

}  // namespace

std::optional<double> NumberOf(const document::Text& text) {
    if (!IsNumber(text)) return {};
    const auto* source = std::get_if<document::NumberSource>(&text.fFrom);
    const double number =
        source ? source->fNumber : std::get<double>(std::get<document::ValueSource>(text.fFrom).fValue);
    if (number == kSystemMissing) return std::numeric_limits<double>::quiet_NaN();
    if (std::isfinite(number) && std::abs(number) > kLargestNumber) return {};
    return number == 0 ? 0 : number;  // without its sign
}

std::string SheetWriter::Fit(int row, int column, std::string_view words) {
    std::string text = EscapeCodes(MakeCellText(words));
    if (const std::size_t length = CutText(text)) {
        fParts.fvRemarks.push_back(fName + "!" + NameCell(row, column) + ": a text of " + std::to_string(length) +
                                   " characters is cut to " + std::to_string(kMostCharacters) +
                                   ", which is what a cell holds");
    }
    return text;
}

void SheetWriter::PutBlanks(int row, int firstColumn, int lastColumn, const Look& look) {
    const int index = fParts.fLooks.Of(look);
    for (int column = firstColumn; column <= lastColumn; ++column) fSheet.PutBlank(row, column, index);
}

void SheetWriter::PutWords(int row, int column, std::string_view words, const Look& look) {
    const std::string text = Fit(row, column, words);
    if (text.empty()) return fSheet.PutBlank(row, column, fParts.fLooks.Of(look));
    fSheet.PutText(row, column, text, fParts.fLooks.Of(look));
}

void SheetWriter::PutWide(int row, int firstColumn, int lastColumn, std::string_view words, const Look& look) {
    if (firstColumn == lastColumn) return PutWords(row, firstColumn, words, look);
    fSheet.PutWide(row, firstColumn, lastColumn, Fit(row, firstColumn, words), fParts.fLooks.Of(look));
}

void SheetWriter::PutText(int row, int column, const document::Text& text, const std::string& marks, const Look& look) {
    const auto number = NumberOf(text);
    if (!number) return PutWords(row, column, text.fWords + marks, look);
    if (!std::isfinite(*number)) return fSheet.PutBlank(row, column, fParts.fLooks.Of(look));
    Look withCode = look;
    NumberCodes& codes = fParts.fLooks.GetCodes();
    withCode.fCode = codes.At(codes.Find(*number, text.fWords, marks));
    fSheet.PutNumber(row, column, *number, fParts.fLooks.Of(withCode));
}

void SheetWriter::PutParagraph(int row, int lastColumn, double width, std::string_view words, const Look& look) {
    const double height = MeasureHeight(words, width);
    if (height == 0) return PutWords(row, 0, words, look);  // It reaches over the empty cells beside it.
    Look wrapped = look;
    wrapped.fWraps = true;
    fSheet.SetHeight(row, height);
    PutWide(row, 0, lastColumn, words, wrapped);
}

}  // namespace hierfit::report::xlsx
