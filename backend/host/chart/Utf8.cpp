#include "host/chart/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "host/xml/SourceText.h"

namespace hierfit::chart {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsCharacter(char32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

/// Number of bytes that a lead byte announces; 0 for a byte that leads nothing.
std::size_t AnnouncedLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// The first character of a text and its length in bytes; the length is 0 where there is none.
struct Decoded {
    char32_t fCode;
    std::size_t fLength;
};

Decoded DecodeFirst(std::string_view text) {
    constexpr std::array<unsigned, 5> kLeadBits{0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::array<char32_t, 5> kLeast{0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = AnnouncedLength(lead);
    if (length == 0 || length > text.size()) return {kReplacement, 0};
    char32_t code = lead & kLeadBits[length];
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return {kReplacement, 0};
        code = (code << 6U) | (byte & 0x3FU);
    }
    return IsCharacter(code) && code >= kLeast[length] ? Decoded{code, length} : Decoded{kReplacement, 0};
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = DecodeFirst(text).fLength;
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace

std::u32string DecodeUtf8(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    while (!text.empty()) {
        const auto [code, length] = DecodeFirst(text);
        characters += code;
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return characters;
}

std::string EncodeUtf8(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const char32_t code : characters) xml::AppendUtf8(text, IsCharacter(code) ? code : kReplacement);
    return text;
}

std::string MakeUtf8(std::string text) { return IsUtf8(text) ? std::move(text) : EncodeUtf8(DecodeUtf8(text)); }

}  // namespace hierfit::chart
