#include "report/html/table/NumberColumns.h"

#include <algorithm>

#include "report/layout/CellContent.h"

namespace hierfit::report::html {

namespace {

// No number format goes further; a text that does is not worth the room.
constexpr std::size_t kLongestTail = 24;

constexpr std::string_view kDigits = "0123456789";

}  // namespace

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
        return;
    }
    ++column.fNumbers;
    const Tail tail = TailOf(content.fWords);
    column.fTail.fHasSign = column.fTail.fHasSign || tail.fHasSign;
    column.fTail.fDigits = std::max(column.fTail.fDigits, tail.fDigits);
    if (tail.fSuffix.size() > column.fTail.fSuffix.size()) column.fTail.fSuffix = tail.fSuffix;
}

NumberColumns::Tail NumberColumns::TailOf(std::string_view words) {
    const std::size_t begin = words.find_first_not_of("<>+-0123456789");
    if (begin == std::string_view::npos || words.size() - begin > kLongestTail) return {};
    const bool hasSign = words[begin] == '.';
    if (!hasSign) return {false, 0, words.substr(begin)};
    const std::size_t end = std::min(words.find_first_not_of(kDigits, begin + 1), words.size());
    return {true, end - begin - 1, words.substr(end)};
}

std::string NumberColumns::PaddingOf(int column, std::string_view words) const {
    const Tail& whole = At(column).fTail;
    const Tail tail = TailOf(words);
    std::string padding(whole.fHasSign && !tail.fHasSign ? 1 : 0, '.');
    padding.append(whole.fDigits - tail.fDigits, '0');
    if (tail.fSuffix.size() < whole.fSuffix.size()) padding += whole.fSuffix.substr(tail.fSuffix.size());
    return padding;
}

}  // namespace hierfit::report::html
