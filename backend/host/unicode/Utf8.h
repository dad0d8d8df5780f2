#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hierfit::unicode {

/// Stands for what is no character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// One character of a UTF-8 text.
struct Character {
    char32_t fCode;       ///< `kReplacement` for a byte that is no UTF-8
    std::size_t fLength;  ///< in bytes, at least 1; each invalid byte is one by itself
    bool fIsValid;
};

/// The character that begins with a byte beyond ASCII at a place within the text.
Character LongCharacterAt(std::string_view text, std::size_t place);

/// The character that begins at a place within the text. Whatever the bytes are, going on by lengths ends at the end.
inline Character CharacterAt(std::string_view text, std::size_t place) {
    const auto byte = static_cast<unsigned char>(text[place]);
    return byte < 0x80 ? Character{byte, 1, true} : LongCharacterAt(text, place);
}

/// Whether a byte of a valid text begins a character.
inline bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

/// Number of characters of a valid text.
inline std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (const char byte : text) count += BeginsCharacter(byte) ? 1 : 0;
    return count;
}

/// The first characters of a valid text, all of it where it has no more than so many.
inline std::string_view FirstCharacters(std::string_view text, std::size_t most) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (BeginsCharacter(text[i]) && ++count > most) return text.substr(0, i);
    }
    return text;
}

bool IsUtf8(std::string_view text);

/// Characters of a text, `kReplacement` for each byte that is no UTF-8.
std::u32string Decode(std::string_view text);

/// Appends a character as UTF-8; what is none, such as half a surrogate pair, as `kReplacement`.
void Append(std::string& text, char32_t code);

/// UTF-8 of characters, as `Append` writes each.
std::string Encode(std::u32string_view characters);

/// The text itself where it is UTF-8, else with `kReplacement` for each byte that is none.
std::string MakeUtf8(std::string text);

}  // namespace hierfit::unicode
