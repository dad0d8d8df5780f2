#pragma once

#include <string>
#include <string_view>

namespace hierfit::chart {

/// Characters of a UTF-8 text. Bytes that are none become U+FFFD, one for each.
std::u32string DecodeUtf8(std::string_view text);

/// UTF-8 of characters. What is no character, such as a lone surrogate, becomes U+FFFD.
std::string EncodeUtf8(std::u32string_view characters);

/// The text itself where it is UTF-8, else with U+FFFD in place of what is none.
std::string MakeUtf8(std::string text);

}  // namespace hierfit::chart
