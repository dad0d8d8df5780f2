#include "host/document/NumberFormat.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include "host/SystemMissing.h"

namespace hierfit::document {

namespace {

constexpr int kMostDigits = 15;
constexpr int kSmallDigits = 3;     // significant digits of a figure that decimals would show as zero
constexpr int kLeastExponent = -4;  // below, small figures have scientific form
constexpr int kHugeDecimals = 5;    // decimals of the scientific form of huge figures

std::string Write(double number, std::chars_format form, int decimals) {
    char buffer[64];  // holds 15 digits before the decimal sign and 30 behind it
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, form, decimals).ptr;
    return {buffer, end};
}

std::string WriteFixed(double number, int decimals) { return Write(number, std::chars_format::fixed, decimals); }

std::string WriteScientific(double number, int decimals) {
    return Write(number, std::chars_format::scientific, decimals);
}

int ReadExponent(std::string_view scientific) {
    std::string_view text = scientific.substr(scientific.find('e') + 1);
    if (text.starts_with('+')) text.remove_prefix(1);
    int exponent = 0;
    std::from_chars(text.data(), text.data() + text.size(), exponent);
    return exponent;
}

bool ShowsZero(std::string_view text) { return text.find_first_of("123456789") == std::string_view::npos; }

bool IsTooLong(double number, int decimals) { return std::abs(number) >= std::pow(10.0, kMostDigits - decimals); }

std::string WriteDecimals(double number, int decimals) {
    if (IsTooLong(number, decimals)) return WriteScientific(number, kHugeDecimals);
    std::string text = WriteFixed(number, decimals);
    if (text.starts_with('-') && ShowsZero(text)) text.erase(0, 1);
    return text;
}

std::string WriteSmall(double number) {
    std::string text = WriteScientific(number, kSmallDigits - 1);
    const int exponent = ReadExponent(text);
    return exponent < kLeastExponent ? text : WriteFixed(number, kSmallDigits - 1 - exponent);
}

std::string FormatDecimals(double number, int decimals) {
    std::string text = WriteDecimals(number, decimals);
    return number != 0 && ShowsZero(text) ? WriteSmall(number) : text;
}

std::string FormatSignificance(double number) {
    if (number >= 0 && number < 0.0005) return "<.001";
    std::string text = FormatDecimals(number, 3);
    const std::size_t digit = text.starts_with('-') ? 1 : 0;
    if (text.compare(digit, 2, "0.") == 0) text.erase(digit, 1);
    return text;
}

void DropTrailingZeros(std::string& text) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
}

std::string FormatCount(double number) {
    if (IsTooLong(number, 0)) return WriteScientific(number, kHugeDecimals);
    std::string text = WriteFixed(number, 2);
    DropTrailingZeros(text);
    return text == "-0" ? "0" : text;
}

// Digits of the shortest text that gives the number back, at most 15.
int CountDigits(double number) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific).ptr;
    std::string digits(buffer, std::find(buffer, end, 'e'));
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (std::count_if(digits.begin(), digits.end(), isDigit) > kMostDigits) {
        digits = WriteScientific(number, kMostDigits - 1);
        digits.erase(digits.find('e'));
        DropTrailingZeros(digits);
    }
    return static_cast<int>(std::count_if(digits.begin(), digits.end(), isDigit));
}

std::string FormatSignificant(double number, int digits) {
    if (number == 0) return "0";
    std::string text = WriteScientific(number, digits - 1);
    const int exponent = ReadExponent(text);
    if (exponent < kLeastExponent || exponent >= kMostDigits) return text;
    return WriteFixed(number, std::max(0, digits - 1 - exponent));
}

bool IsMissing(double number) { return number == kSystemMissing || !std::isfinite(number); }

}  // namespace

std::string FormatNumber(double number, const Format& format) {
    if (IsMissing(number)) return ".";
    switch (format.fName) {
        case FormatName::Coefficient:
        case FormatName::GeneralStat:
            return FormatDecimals(number, 3);
        case FormatName::CoefficientSE:
            return FormatDecimals(number, 4);
        case FormatName::Significance:
            return FormatSignificance(number);
        case FormatName::Count:
            return FormatCount(number);
        case FormatName::Percent:
            return WriteDecimals(number, 1) + '%';
        case FormatName::SigDigit:
            return FormatSignificant(number, CountDigits(IsMissing(format.fArgument) ? number : format.fArgument));
    }
    return ".";
}

}  // namespace hierfit::document
