#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hierfit::report::xlsx {

enum class NumberForm : unsigned char {
    Fixed,
    Unleaded,  ///< without a zero before the decimal sign
    Percent,   ///< 97.2 shows as "97.2%"
    Scientific,
};

/// The form in which words show a number.
struct NumberShape {
    NumberForm fForm = NumberForm::Fixed;
    int fPlaces = 0;

    bool operator==(const NumberShape&) const = default;
};
inline constexpr int kMostPlaces = 30;  ///< that a number format has

/// The form of words such as "-0.050", ".050", "97.2%" or "1.20e-05", with a hyphen or U+2212; nothing for others.
std::optional<NumberShape> ReadShape(std::string_view words);

/// A number format of that shape.
std::string MakeCode(NumberShape shape);

/// A number format that shows these words for this number, whatever its own rounding would be, and others in the shape.
/// Nothing for words that cannot stand in one.
std::optional<std::string> MakeWordCode(double number, std::string_view words, NumberShape shape);

/// A number format for "<.001" or ">.99": numbers beyond the limit show the words, others as many places. Nothing for
/// other words, and for a number that is not beyond.
std::optional<std::string> MakeLimitCode(double number, std::string_view words);

/// Whether a spreadsheet shows the words for a number in their shape. It rounds the number's first 15 digits half up,
/// where the words come from all of its digits.
bool ShowsWords(double number, std::string_view words, NumberShape shape);

}  // namespace hierfit::report::xlsx
