#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/KEST_Format.h"

namespace hierfit::data {

/// A print format from its text: F, width and decimals for numbers, such as "F8.2" or "F3"; A and width for texts, such
/// as "A12". Widths go from 1 to 255 and are more than the decimals, of which there are at most 16. Nothing for any
/// other text.
std::optional<KEST_Format> ParsePrintFormat(std::string_view text);

/// The text that a print format is read from, such as "F40.2", "F8.0" or "A12".
std::string PrintFormatText(const KEST_Format& format);

}  // namespace hierfit::data
