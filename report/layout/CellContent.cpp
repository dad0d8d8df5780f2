#include "report/layout/CellContent.h"

#include <string_view>

namespace hierfit::report {

namespace {

constexpr std::string_view kMinus = "\u2212";

}  // namespace

bool IsNumber(const document::Text& text) {
    if (std::holds_alternative<document::NumberSource>(text.fFrom)) return true;
    const auto* value = std::get_if<document::ValueSource>(&text.fFrom);
    std::string_view words = text.fWords;
    if (words.starts_with(kMinus)) words.remove_prefix(kMinus.size());
    return value && std::holds_alternative<double>(value->fValue) &&
           words.find_first_not_of("0123456789.+-eE") == std::string_view::npos;
}

}  // namespace hierfit::report
