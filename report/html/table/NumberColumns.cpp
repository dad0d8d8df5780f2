#include "report/html/table/NumberColumns.h"

namespace hierfit::report::html {

namespace {

// No number format goes further; a text that does is not worth the room.
constexpr std::size_t kLongestTail = 24;

std::string_view TailOf(std::string_view words) {
    const std::size_t sign = words.rfind('.');
    if (sign == std::string_view::npos || words.size() - sign > kLongestTail) return {};
    return words.substr(sign);
}

}  // namespace

NumberColumns::NumberColumns(const Grid& grid) : fvColumns(static_cast<std::size_t>(grid.fColumns)) {
    auto cell = grid.fvCells.begin();
    for (int row = 0; row < grid.fRows; ++row) {
        for (Column& column : fvColumns) {
            const document::Cell* content = (cell++)->fpCell;
            if (!content) continue;
            const bool isNumber = IsNumber(content->fContent);
            ++(isNumber ? column.fNumbers : column.fTexts);
            if (!isNumber) continue;
            const std::string_view tail = TailOf(content->fContent.fWords);
            if (tail.size() > column.fTail.size()) column.fTail = tail;
        }
    }
}

std::string_view NumberColumns::PaddingOf(int column, std::string_view words) const {
    return At(column).fTail.substr(TailOf(words).size());
}

bool IsNumber(const document::Text& text) { return std::holds_alternative<document::NumberSource>(text.fFrom); }

}  // namespace hierfit::report::html
