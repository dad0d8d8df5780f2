#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// The width in pixels of one line of UTF-8 text, set in DejaVu Sans without kerning: the widest of the fonts that
/// pictures are set in, so that no other needs more room. What that font lacks counts one em. Linear in the text's
/// length.
double TextWidth(std::string_view text, const TextStyle& style);

/// The distance from one baseline to the next.
inline double LineHeight(const TextStyle& style) { return style.fSize * 1.25; }

/// How far letters reach above the baseline, and below it; the font's own lines are not higher.
inline double Ascent(const TextStyle& style) { return style.fSize * 0.93; }
inline double Descent(const TextStyle& style) { return style.fSize * 0.24; }

/// The width of the widest of a text's words, which blanks, line ends and asterisks part.
double LongestWord(std::string_view text, const TextStyle& style);

/// The width of the widest line.
double WidestLine(const std::vector<std::string>& lines, const TextStyle& style);

/// The text in one line, or as much of its beginning as fits into the width together with an ellipsis.
std::string CutText(std::string_view text, double width, const TextStyle& style);

/// The same for texts that stand side by side: those that would be cut to the same words are cut in the middle, or down
/// to where they differ.
std::vector<std::string> CutTexts(const std::vector<std::string>& texts, double width, const TextStyle& style);

/// Breaks a text into lines of at most the width: at its line ends, then between words and behind asterisks, and within
/// a word that is longer than a line, there behind a sign such as "=" if it can be. What does not fit into the lines
/// allowed is cut with an ellipsis. No text gives no lines.
std::vector<std::string> WrapText(std::string_view text, double width, const TextStyle& style,
                                  std::size_t mostLines = 12);

/// The same for texts that stand side by side: those that do not fit are cut so that they differ.
std::vector<std::vector<std::string>> WrapTexts(const std::vector<std::string>& texts, double width,
                                                const TextStyle& style, std::size_t mostLines);

/// Whether a text fits into so many lines of the width, without a break in a word.
bool DoesFit(std::string_view text, double width, const TextStyle& style, std::size_t mostLines);

}  // namespace hierfit::report::charts
