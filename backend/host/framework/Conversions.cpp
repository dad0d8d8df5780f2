#include "host/Conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>

#include "host/SystemMissing.h"
#include "host/data/Number.h"

namespace hierfit {

namespace {

struct RomanStep {
    int fValue;
    std::string_view fNumeral;
};

constexpr std::array<RomanStep, 13> kRomanSteps{{{1000, "M"},
                                                 {900, "CM"},
                                                 {500, "D"},
                                                 {400, "CD"},
                                                 {100, "C"},
                                                 {90, "XC"},
                                                 {50, "L"},
                                                 {40, "XL"},
                                                 {10, "X"},
                                                 {9, "IX"},
                                                 {5, "V"},
                                                 {4, "IV"},
                                                 {1, "I"}}};
constexpr std::size_t kLongestRoman = 15;  // MMMDCCCLXXXVIII

/// The number that the numerals add up to, in descending order; 0 when something is left over.
int AddNumerals(std::string_view text) {
    int sum = 0;
    for (const auto& [value, numeral] : kRomanSteps) {
        for (; text.starts_with(numeral); text.remove_prefix(numeral.size())) sum += value;
    }
    return text.empty() ? sum : 0;
}

std::string ToRoman(int number) {
    std::string text;
    for (const auto& [value, numeral] : kRomanSteps) {
        for (; number >= value; number -= value) text += numeral;
    }
    return text;
}

}  // namespace

double String2Double(const std::string& text) { return data::ParseNumber(text).value_or(kSystemMissing); }

int String2Integer(const std::string& text) {
    std::string_view number = data::TrimBlanks(text);
    if (number.starts_with('+') && !number.substr(1).starts_with('-')) number.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (end != number.data() + number.size()) return 0;
    if (error != std::errc::result_out_of_range) return value;
    return number[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

int Roman2Integer(const std::string& text) {
    if (text.size() > kLongestRoman) return 0;
    std::string upper = text;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    const int number = AddNumerals(upper);
    return number < 4000 && ToRoman(number) == upper ? number : 0;
}

}  // namespace hierfit
