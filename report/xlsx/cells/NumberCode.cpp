#include "report/xlsx/cells/NumberCode.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace hierfit::report::xlsx {

namespace {

constexpr std::string_view kMinus = "\u2212";
constexpr int kShownDigits = 15;  // of a number, behind which a spreadsheet shows zeros
constexpr double kSafe = 0.499;   // of a unit in the last place: nearer than this no rounding differs

bool TakeMinus(std::string_view& words) {
    for (const std::string_view minus : {std::string_view("-"), kMinus}) {
        if (!words.starts_with(minus)) continue;
        words.remove_prefix(minus.size());
        return true;
    }
    return false;
}

int TakeDigits(std::string_view& words) {
    const std::size_t end = std::min(words.find_first_not_of("0123456789"), words.size());
    words.remove_prefix(end);
    return static_cast<int>(end);
}

/// "e-05" at the end of words.
bool IsExponent(std::string_view words) {
    if (words.size() < 3 || words[0] != 'e' || (words[1] != '+' && words[1] != '-')) return false;
    words.remove_prefix(2);
    return TakeDigits(words) > 0 && words.empty();
}

template <typename... Form>
std::string Write(double number, Form... form) {
    char buffer[384];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number, form...).ptr};
}

double Read(std::string_view text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// What a spreadsheet rounds to show a number: its first 15 digits, and so little more that a half is rounded up.
double MakeShown(double magnitude) {
    std::string text = Write(magnitude, std::chars_format::scientific, kShownDigits - 1);
    text.insert(text.find('e'), 1, '5');
    return Read(text);
}

std::string ShowMagnitude(double magnitude, NumberShape shape) {
    const auto form = shape.fForm == NumberForm::Scientific ? std::chars_format::scientific : std::chars_format::fixed;
    std::string text = Write(magnitude == 0 ? 0 : MakeShown(magnitude), form, shape.fPlaces);
    if (shape.fForm == NumberForm::Unleaded && text.starts_with("0.")) text.erase(0, 1);
    if (shape.fForm == NumberForm::Percent) text += '%';
    return text;
}

/// What one stands for in the last place that words show.
double UnitOf(double shown, NumberShape shape) {
    int exponent = -shape.fPlaces;
    if (shape.fForm == NumberForm::Scientific && shown != 0)
        exponent += static_cast<int>(std::floor(std::log10(shown)));
    return std::pow(10.0, exponent);
}

bool CanStandInCode(std::string_view words) {
    return words.size() <= 40 && words.find_first_not_of("0123456789.,<>%+-eE ") == std::string_view::npos;
}

std::string Quote(std::string_view words) { return '"' + std::string(words) + '"'; }

}  // namespace

std::optional<NumberShape> ReadShape(std::string_view words) {
    TakeMinus(words);
    const int whole = TakeDigits(words);
    NumberShape shape;
    if (words.starts_with('.')) {
        words.remove_prefix(1);
        shape.fPlaces = TakeDigits(words);
        if (shape.fPlaces == 0) return {};
        if (whole == 0) shape.fForm = NumberForm::Unleaded;
    } else if (whole == 0) {
        return {};
    }
    if (shape.fPlaces > kMostPlaces) return {};
    if (words.empty()) return shape;
    if (whole == 0) return {};
    shape.fForm = words == "%" ? NumberForm::Percent : NumberForm::Scientific;
    const bool isWhole = shape.fForm == NumberForm::Percent || (whole == 1 && IsExponent(words));
    return isWhole ? std::optional(shape) : std::nullopt;
}

std::string MakeCode(NumberShape shape) {
    std::string code = shape.fForm == NumberForm::Unleaded ? "" : "0";
    if (shape.fPlaces > 0) code.append(1, '.').append(static_cast<std::size_t>(shape.fPlaces), '0');
    if (shape.fForm == NumberForm::Percent) code += "\"%\"";
    if (shape.fForm == NumberForm::Scientific) code += "E+00";
    return code;
}

std::optional<std::string> MakeWordCode(double number, std::string_view words, NumberShape shape) {
    const bool isNegative = TakeMinus(words);
    if (!CanStandInCode(words)) return {};
    const std::string quoted = Quote((isNegative ? "-" : "") + std::string(words));
    const std::string others = MakeCode(shape);
    if (number < 0) return others + ";" + quoted;
    const std::string digits = Write(number, std::chars_format::general, kShownDigits);
    const bool isShort = Read(digits) == number && digits.find('e') == std::string::npos;
    return isShort ? "[=" + digits + "]" + quoted + ";" + others : quoted + ";-" + others;
}

std::optional<std::string> MakeLimitCode(double number, std::string_view words) {
    std::string_view rest = words;
    if (!CanStandInCode(words) || (!rest.starts_with('<') && !rest.starts_with('>'))) return {};
    const bool isBelow = rest.front() == '<';
    rest.remove_prefix(std::min(rest.find_first_not_of(" ", 1), rest.size()));
    const auto shape = ReadShape(rest);
    if (!shape || shape->fForm != NumberForm::Unleaded) return {};
    const std::string limit = "0" + std::string(rest);
    if (isBelow ? number >= Read(limit) : number <= Read(limit)) return {};
    return std::string("[") + words.front() + limit + "]" + Quote(words) + ";" + MakeCode(*shape);
}

bool ShowsWords(double number, std::string_view words, NumberShape shape) {
    const bool isNegative = TakeMinus(words);
    const double shown = Read(words);
    const double magnitude = std::abs(number);
    if (isNegative != (number < 0)) return false;
    if (std::abs(shown - magnitude) < kSafe * UnitOf(shown, shape)) return true;
    return ShowMagnitude(magnitude, shape) == words;
}

}  // namespace hierfit::report::xlsx
