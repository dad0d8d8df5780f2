#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/chart/view/text/TextWidth.h"

namespace hierfit::chart {

/// Breaks a text into lines of at most the width: at its line ends, then between words, and within a word that is
/// longer than a line. Blanks that a renderer would drop become no-break spaces. What does not fit into the lines
/// allowed is cut with an ellipsis. No text gives no lines.
std::vector<std::string> WrapText(std::string_view text, double width, const TextStyle& style,
                                  std::size_t maximumLines = 12);

/// One line that a renderer shows with all its blanks: a leading blank, or one that follows another, becomes a no-break
/// space; a line end or tabulator becomes a blank before.
std::string KeepBlanks(std::string_view line);

}  // namespace hierfit::chart
