#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hierfit::report {

/// A text fit for a terminal: control and bidirectional characters become visible, such as "␛" and "\u{202E}", and
/// bytes that are no UTF-8 become U+FFFD. Line feeds stay. Figures keep their signs before them in lines that are
/// written from right to left.
std::string MakeVisible(std::string_view text);

/// Columns that a visible text of one line takes on a terminal.
int MeasureWidth(std::string_view line);

/// The lines of a visible text, parted at its line feeds.
std::vector<std::string> SplitLines(std::string_view text);

/// Lines of at most that many columns, parted at blanks, and within words that are wider. 0 is no limit.
std::vector<std::string> WrapLines(std::string_view text, int width);

/// Columns of the widest word of a line.
int MeasureWidestWord(std::string_view line);

/// Columns of the widest part of a word of a line, where words part behind the signs that join their parts, such as
/// those of an effect.
int MeasureWidestPart(std::string_view line);

}  // namespace hierfit::report
