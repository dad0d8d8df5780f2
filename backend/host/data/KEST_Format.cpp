#include "host/KEST_Format.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "host/SystemMissing.h"

namespace hierfit {

namespace {

/// More characters than this tell a reader less than an exponent does.
constexpr std::size_t kMostCharacters = 40;

std::string TrimTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string FixedNotation(double number, int decimals) {
    std::string text = fmt::format("{:.{}f}", number, decimals);
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    if (isZero && text[0] == '-') text.erase(0, 1);
    return text;
}

std::string NumberText(double number, const KEST_Format& format) {
    if (number == kSystemMissing || !std::isfinite(number)) return ".";
    if (!format.IsString()) {
        std::string text = FixedNotation(number, format.fDecimals);
        if (text.size() <= kMostCharacters) return text;
    }
    return number == 0 ? "0" : fmt::format("{}", number);
}

}  // namespace

std::string ToString(const OBS* value, const KEST_Format& format) {
    if (!value) return {};
    return value->IsText() ? TrimTrailingBlanks(value->Text()) : NumberText(value->Number(), format);
}

}  // namespace hierfit
