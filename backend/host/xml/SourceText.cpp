#include "host/xml/SourceText.h"

#include <algorithm>

#include "host/unicode/Utf8.h"

namespace hierfit::xml {

namespace {

using unicode::kReplacement;

unsigned char Byte(std::string_view bytes, std::size_t offset) { return static_cast<unsigned char>(bytes[offset]); }

bool IsSurrogate(char32_t code) { return code >= 0xD800 && code < 0xE000; }

bool EqualsWithoutCase(std::string_view text, std::string_view upper) {
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

}  // namespace

SourceText::SourceText(std::string_view bytes) : fBytes(bytes) {
    if (bytes.size() < 2) return;
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        fBegin = 3;
    } else if (bytes.starts_with("\xFF\xFE") || bytes[1] == '\0') {
        fEncoding = Encoding::Utf16LittleEndian;
        fBegin = bytes[1] == '\0' ? 0 : 2;
    } else if (bytes.starts_with("\xFE\xFF") || bytes[0] == '\0') {
        fEncoding = Encoding::Utf16BigEndian;
        fBegin = bytes[0] == '\0' ? 0 : 2;
    }
}

void SourceText::Declare(std::string_view encoding) {
    if (fEncoding == Encoding::Utf8 && EqualsWithoutCase(encoding, "ISO-8859-1")) fEncoding = Encoding::OneByte;
}

SourceText::Character SourceText::At(std::size_t offset) const {
    switch (fEncoding) {
        case Encoding::Utf8: {
            const unicode::Character character = unicode::CharacterAt(fBytes, offset);
            return {character.fCode, offset + character.fLength};
        }
        case Encoding::OneByte:
            return {Byte(fBytes, offset), offset + 1};
        default:
            return Utf16At(offset);
    }
}

char32_t SourceText::Utf16Unit(std::size_t offset) const {
    const char32_t first = Byte(fBytes, offset);
    const char32_t second = Byte(fBytes, offset + 1);
    return fEncoding == Encoding::Utf16LittleEndian ? second << 8U | first : first << 8U | second;
}

SourceText::Character SourceText::Utf16At(std::size_t offset) const {
    if (fBytes.size() - offset < 2) return {kReplacement, fBytes.size()};
    const char32_t unit = Utf16Unit(offset);
    if (!IsSurrogate(unit)) return {unit, offset + 2};
    if (unit >= 0xDC00 || fBytes.size() - offset < 4) return {kReplacement, offset + 2};
    const char32_t low = Utf16Unit(offset + 2);
    if (low < 0xDC00 || low >= 0xE000) return {kReplacement, offset + 2};
    return {0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00), offset + 4};
}

std::size_t SourceText::Before(std::size_t offset) const {
    const std::size_t unit = fEncoding == Encoding::Utf8 || fEncoding == Encoding::OneByte ? 1 : 2;
    const std::size_t longest = fEncoding == Encoding::OneByte ? 1 : 4;
    for (std::size_t length = longest; length > unit; length -= unit) {
        if (offset - fBegin >= length && At(offset - length).fEnd == offset) return offset - length;
    }
    return offset - std::min(unit, offset - fBegin);
}

}  // namespace hierfit::xml
