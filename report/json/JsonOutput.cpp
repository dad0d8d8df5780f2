#include "report/json/JsonOutput.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"

namespace hierfit::report {

namespace {

/// Bytes that stand for themselves in a JSON string: printable ASCII but quote and backslash.
constexpr std::array<bool, 256> kIsPlain = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x7F; ++byte) plain[byte] = byte != '"' && byte != '\\';
    return plain;
}();

std::size_t CountPlain(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && kIsPlain[static_cast<unsigned char>(text[count])]) ++count;
    return count;
}

/// Escapes a quote, a backslash or a control character.
void AppendEscape(std::string& out, unsigned char character) {
    constexpr std::string_view kNamed = "\"\\\b\f\n\r\t";
    constexpr std::string_view kNames = "\"\\bfnrt";
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    out += '\\';
    if (const std::size_t at = kNamed.find(static_cast<char>(character)); at != std::string_view::npos) {
        out += kNames[at];
    } else {
        out.append("u00").append(1, kHexDigits[character >> 4]).append(1, kHexDigits[character & 0xF]);
    }
}

/// Appends the first character, which is not plain, and tells how many bytes of the text it took.
std::size_t AppendSpecial(std::string& out, std::string_view text) {
    const unicode::Character character = unicode::CharacterAt(text, 0);
    if (!character.fIsValid) {
        out += "\uFFFD";
    } else if (character.fCode == '"' || character.fCode == '\\' || unicode::IsControl(character.fCode)) {
        AppendEscape(out, static_cast<unsigned char>(character.fCode));
    } else {
        out.append(text.substr(0, character.fLength));
    }
    return character.fLength;
}

void AppendQuoted(std::string& out, std::string_view text) {
    out += '"';
    while (true) {
        const std::size_t plain = CountPlain(text);
        out.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) break;
        text.remove_prefix(AppendSpecial(out, text));
    }
    out += '"';
}

}  // namespace

void JsonOutput::Key(std::string_view key) {
    Separate();
    fOut.append(1, '"').append(key).append("\":");
    if (fvFrames.back().fLayout == Layout::Block) fOut += ' ';
    fAfterKey = true;
}

void JsonOutput::Integer(int value) {
    std::array<char, 16> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    Verbatim({digits.data(), end});
}

void JsonOutput::Number(double value) {
    if (std::isnan(value)) return Verbatim("\"NaN\"");
    if (std::isinf(value)) return Verbatim(value < 0 ? "\"-Infinity\"" : "\"Infinity\"");
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::string_view shortest(digits.data(), end);
    Verbatim(shortest);
    if (shortest.find_first_of(".e") == std::string_view::npos) fOut += ".0";
}

void JsonOutput::String(std::string_view value) {
    Separate();
    AppendQuoted(fOut, value);
}

void JsonOutput::TextOrNumber(std::string_view value) {
    if (value == "NaN") return Verbatim("\"\\u004eaN\"");
    if (value == "Infinity") return Verbatim("\"\\u0049nfinity\"");
    if (value == "-Infinity") return Verbatim("\"\\u002dInfinity\"");
    String(value);
}

void JsonOutput::Verbatim(std::string_view json) {
    Separate();
    fOut += json;
}

std::string JsonOutput::Take() {
    fOut += '\n';
    return std::move(fOut);
}

void JsonOutput::Begin(char bracket, Layout layout) {
    Separate(layout == Layout::Block);
    fOut += bracket;
    fvFrames.push_back({layout, true});
}

void JsonOutput::End(char bracket) {
    const Frame frame = fvFrames.back();
    fvFrames.pop_back();
    if (frame.fLayout == Layout::Block && !frame.fIsEmpty) BreakLine();
    fOut += bracket;
}

/// What stands between a value or key and what came before it. Lines of their own, such as cells, are not indented:
/// there are many.
void JsonOutput::Separate(bool isIndented) {
    if (std::exchange(fAfterKey, false) || fvFrames.empty()) return;
    Frame& frame = fvFrames.back();
    const bool isFirst = std::exchange(frame.fIsEmpty, false);
    if (!isFirst) fOut += ',';
    if (frame.fLayout == Layout::Line) return;
    if (isIndented) {
        BreakLine();
    } else {
        fOut += '\n';
    }
}

}  // namespace hierfit::report
