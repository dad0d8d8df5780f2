#pragma once

#include <string>
#include <string_view>

namespace hierfit::chart {

/// How a text is set. The family is always that of the views.
struct TextStyle {
    double fSize = 11.5;  ///< pixels to the em
    bool fIsBold = false;
};

/// The width in pixels of one line of UTF-8 text. Linear in its length; an invalid byte counts as one character.
double TextWidth(std::string_view text, const TextStyle& style);

/// The width of the widest of a text's words, which blanks and line ends part.
double LongestWord(std::string_view text, const TextStyle& style);

/// The text, or as much of its beginning as fits into the width together with an ellipsis.
std::string CutText(std::string_view text, double width, const TextStyle& style);

/// The text, or its first characters and an ellipsis, together no more than the count.
std::string CutCharacters(std::string_view text, std::size_t count);

}  // namespace hierfit::chart
