#include "host/unicode/Utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <utility>

namespace hierfit::unicode {

namespace {

/// Where the ASCII characters that a text has from a place on end.
std::size_t SkipAscii(std::string_view text, std::size_t place) {
    while (place < text.size() && static_cast<unsigned char>(text[place]) < 0x80) ++place;
    return place;
}

void AppendLong(std::string& text, char32_t code) {
    constexpr auto kNone = static_cast<utf8proc_int32_t>(kReplacement);
    const auto known = static_cast<utf8proc_int32_t>(std::min<char32_t>(code, 0x110000));
    std::array<utf8proc_uint8_t, 4> bytes;
    const auto length = utf8proc_encode_char(utf8proc_codepoint_valid(known) ? known : kNone, bytes.data());
    text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(length));
}

}  // namespace

Character LongCharacterAt(std::string_view text, std::size_t place) {
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + place);
    utf8proc_int32_t code = 0;
    const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - place), &code);
    if (length <= 0) return {kReplacement, 1, false};
    return {static_cast<char32_t>(code), static_cast<std::size_t>(length), true};
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = SkipAscii(text, 0); at < text.size(); at = SkipAscii(text, at)) {
        const Character character = LongCharacterAt(text, at);
        if (!character.fIsValid) return false;
        at += character.fLength;
    }
    return true;
}

std::u32string Decode(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Character character = CharacterAt(text, at);
        characters += character.fCode;
        at += character.fLength;
    }
    return characters;
}

void Append(std::string& text, char32_t code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else {
        AppendLong(text, code);
    }
}

std::string Encode(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const char32_t code : characters) Append(text, code);
    return text;
}

std::string MakeUtf8(std::string text) { return IsUtf8(text) ? std::move(text) : Encode(Decode(text)); }

}  // namespace hierfit::unicode
