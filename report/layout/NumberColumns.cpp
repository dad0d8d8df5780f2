#include "report/layout/NumberColumns.h"

#include <algorithm>
#include <cmath>

#include "report/layout/CellContent.h"

namespace hierfit::report {

namespace {

// No number format goes further; a text that does is not worth the room.
constexpr std::size_t kLongestTail = 24;

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

/// Digits, and the signs ahead of them: those of ASCII, and U+2212.
bool IsInIntegerPart(char byte) {
    return IsDigit(byte) || std::string_view("-+<> \u2212").find(byte) != std::string_view::npos;
}

/// The decimals that a figure has in its format, unless it would show as zero.
std::size_t DecimalsOf(document::FormatName format) { return format == document::FormatName::CoefficientSE ? 4 : 3; }

}  // namespace

std::size_t IntegerPartOf(std::string_view words) {
    return static_cast<std::size_t>(std::find_if_not(words.begin(), words.end(), IsInIntegerPart) - words.begin());
}

NumberColumns::NumberColumns(const Grid& grid) : fvColumns(static_cast<std::size_t>(grid.fColumns)) {
    auto cell = grid.fvCells.begin();
    for (int row = 0; row < grid.fRows; ++row) {
        for (Column& column : fvColumns) {
            const document::Cell* content = (cell++)->fpCell;
            if (content) Add(column, content->fContent);
        }
    }
}

void NumberColumns::Add(Column& column, const document::Text& content) {
    if (!IsNumber(content)) {
        ++column.fTexts;
        column.fHasValueLabels = column.fHasValueLabels || std::holds_alternative<document::ValueSource>(content.fFrom);
        return;
    }
    ++column.fNumbers;
    const Tail tail = TailOf(content.fWords);
    fHasSmallFigures = fHasSmallFigures || IsSmall(content, tail);
    Tail& whole = tail.IsPercentage() ? column.fPercentages : column.fTail;
    whole.fHasSign = whole.fHasSign || tail.fHasSign;
    whole.fDigits = std::max(whole.fDigits, tail.fDigits);
    if (tail.fSuffix.size() > whole.fSuffix.size()) whole.fSuffix = tail.fSuffix;
}

bool NumberColumns::IsSmall(const document::Text& content, const Tail& tail) {
    const auto* number = std::get_if<document::NumberSource>(&content.fFrom);
    if (!number || number->fFormat.fName > document::FormatName::GeneralStat) return false;
    return std::abs(number->fNumber) < 1 &&
           (tail.fDigits > DecimalsOf(number->fFormat.fName) || tail.fSuffix.starts_with('e'));
}

NumberColumns::Tail NumberColumns::TailOf(std::string_view words) {
    words.remove_prefix(IntegerPartOf(words));
    if (words.empty() || words.size() > kLongestTail) return {};
    if (words.front() != '.') return {false, 0, words};
    words.remove_prefix(1);
    const auto digits = static_cast<std::size_t>(std::find_if_not(words.begin(), words.end(), IsDigit) - words.begin());
    return {true, digits, words.substr(digits)};
}

std::string NumberColumns::PaddingOf(int column, std::string_view words) const {
    const Tail tail = TailOf(words);
    const Tail& whole = tail.IsPercentage() ? At(column).fPercentages : At(column).fTail;
    std::string padding(whole.fHasSign && !tail.fHasSign ? 1 : 0, '.');
    padding.append(whole.fDigits - tail.fDigits, '0');
    if (tail.fSuffix.size() < whole.fSuffix.size()) padding += whole.fSuffix.substr(tail.fSuffix.size());
    return padding;
}

}  // namespace hierfit::report
