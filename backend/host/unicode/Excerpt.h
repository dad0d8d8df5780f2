#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/unicode/Utf8.h"

namespace hierfit::unicode {

/// A text from a document as it stands in a message: whole, or its beginning and its end with "..." between them, so
/// that it has at most so many characters, five at least. Bytes that are no UTF-8 count as characters or less, never
/// more than four bytes as one.
inline std::string Excerpt(std::string_view text, std::size_t most = 200) {
    constexpr std::string_view kEllipsis = "...";
    constexpr std::size_t kLongest = 4;  // bytes of a character
    if (text.size() <= most) return std::string(text);
    const std::size_t behind = (most - kEllipsis.size()) / 2;
    const std::size_t before = most - kEllipsis.size() - behind;

    std::size_t begin = 0;
    for (std::size_t count = 0; begin < text.size() && begin < kLongest * before; ++begin) {
        if (BeginsCharacter(text[begin]) && ++count > before) break;
    }
    std::size_t end = text.size();
    for (std::size_t count = 0; end > begin && text.size() - end < kLongest * behind && count < behind; --end) {
        if (BeginsCharacter(text[end - 1])) ++count;
    }
    if (begin == end) return std::string(text);
    return std::string(text.substr(0, begin)).append(kEllipsis).append(text.substr(end));
}

}  // namespace hierfit::unicode
