#include "host/data/Number.h"

#include <charconv>
#include <system_error>

namespace hierfit::data {

namespace {

constexpr std::string_view kBlanks = " \t\n\r";
constexpr std::string_view kFirst = ".0123456789";  ///< what an unsigned number begins with

/// Whether a number that is out of range is too small: by its exponent or, without one, by its whole part.
bool IsTooSmall(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos) return number.substr(exponent + 1).starts_with('-');
    return number.substr(0, number.find('.')).find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::optional<double> ParseNumber(std::string_view text) {
    std::string_view number = TrimBlanks(text);
    const bool isNegative = number.starts_with('-');
    if (isNegative || number.starts_with('+')) number.remove_prefix(1);
    if (number.empty() || kFirst.find(number[0]) == std::string_view::npos) return {};
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (end != number.data() + number.size()) return {};
    const bool isTooSmall = error == std::errc::result_out_of_range && IsTooSmall(number);
    if (error != std::errc() && !isTooSmall) return {};
    if (isTooSmall) value = 0;
    return isNegative ? -value : value;
}

}  // namespace hierfit::data
