#pragma once

#include <cstddef>
#include <string_view>

namespace hierfit::report::charts {

/// One character of a UTF-8 text.
struct Character {
    char32_t fCode;       ///< U+FFFD for an invalid byte
    std::size_t fLength;  ///< in bytes, at least 1
};

/// The character that begins at a place within the text.
Character CharacterAt(std::string_view text, std::size_t place);

}  // namespace hierfit::report::charts
