#pragma once

#include <optional>
#include <string_view>

namespace hierfit::data {

/// The text without the blanks of XML (blank, tab, line feed, carriage return) at either end.
std::string_view TrimBlanks(std::string_view text);

/// The decimal number that the whole text is, blanks at either end left out; nothing for any other text. A number too
/// large for a double is nothing too, one too small is 0. Hexadecimal digits and words such as "inf" are no numbers.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace hierfit::data
