#include "report/layout/CellContent.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "host/SystemMissing.h"

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

std::optional<double> FindNumber(const document::Text& text) {
    if (const auto* number = std::get_if<document::NumberSource>(&text.fFrom)) return number->fNumber;
    if (IsNumber(text)) return std::get<double>(std::get<document::ValueSource>(text.fFrom).fValue);
    return {};
}

std::string SpellNumber(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number > 0 ? "Inf" : "-Inf";
    if (number == kSystemMissing) return {};
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

}  // namespace hierfit::report
