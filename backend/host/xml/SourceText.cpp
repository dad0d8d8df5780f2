#include "host/xml/SourceText.h"

#include <algorithm>

namespace hierfit::xml {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

unsigned char Byte(std::string_view bytes, std::size_t offset) { return static_cast<unsigned char>(bytes[offset]); }

bool IsContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80; }

bool IsSurrogate(char32_t code) { return code >= 0xD800 && code < 0xE000; }

/// Bytes of the UTF-8 sequence that a byte leads; 0 when it leads none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    if (lead < 0xE0) return 2;
    return lead < 0xF0 ? 3 : 4;
}

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
        case Encoding::Utf8:
            return Utf8At(offset);
        case Encoding::OneByte:
            return {Byte(fBytes, offset), offset + 1};
        default:
            return Utf16At(offset);
    }
}

SourceText::Character SourceText::Utf8At(std::size_t offset) const {
    const unsigned char lead = Byte(fBytes, offset);
    const std::size_t length = SequenceLength(lead);
    if (length == 1) return {lead, offset + 1};
    if (length == 0 || length > fBytes.size() - offset) return {kReplacement, offset + 1};
    char32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char byte = Byte(fBytes, offset + i);
        if (!IsContinuation(byte)) return {kReplacement, offset + 1};
        code = (code << 6U) | (byte & 0x3FU);
    }
    if (IsSurrogate(code) || code > 0x10FFFF) return {kReplacement, offset + 1};
    return {code, offset + length};
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

void AppendUtf8(std::string& text, char32_t code) {
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto continuation = [&append](char32_t bits) { append(0x80U | (bits & 0x3FU)); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xC0U | code >> 6U);
        continuation(code);
    } else if (code < 0x10000) {
        append(0xE0U | code >> 12U);
        continuation(code >> 6U);
        continuation(code);
    } else {
        append(0xF0U | code >> 18U);
        continuation(code >> 12U);
        continuation(code >> 6U);
        continuation(code);
    }
}

}  // namespace hierfit::xml
