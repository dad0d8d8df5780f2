#include "report/json/JsonTokens.h"

#include <fmt/core.h>

#include <charconv>
#include <utility>

#include "host/unicode/Utf8.h"

namespace hierfit::report {

namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// Whether a byte stands for itself in a string and is ASCII.
bool IsPlain(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x20 && value < 0x80 && byte != '"' && byte != '\\';
}

}  // namespace

JsonTokens::JsonTokens(std::string_view text) : fText(text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (fText.starts_with(kByteOrderMark)) fAt = kByteOrderMark.size();
}

JsonTokens::Kind JsonTokens::Peek() {
    SkipBlanks();
    switch (const char character = GetCharacter()) {
        case '{':
            return Kind::Object;
        case '[':
            return Kind::List;
        case '"':
            return Kind::String;
        case 't':
        case 'f':
            return Kind::Boolean;
        case 'n':
            return Kind::Null;
        default:
            if (character != '-' && !IsDigit(character)) Fail("value expected");
            return Kind::Number;
    }
}

bool JsonTokens::TakeBoolean() {
    const bool value = GetCharacter() == 't';
    TakeWord(value ? "true" : "false");
    return value;
}

std::string_view JsonTokens::TakeNumber() {
    const std::size_t begin = fAt;
    if (GetCharacter() == '-') ++fAt;
    if (GetCharacter() == '0') {
        ++fAt;
    } else {
        TakeDigits();
    }
    if (GetCharacter() == '.') {
        ++fAt;
        TakeDigits();
    }
    if (GetCharacter() == 'e' || GetCharacter() == 'E') {
        ++fAt;
        if (GetCharacter() == '+' || GetCharacter() == '-') ++fAt;
        TakeDigits();
    }
    return fText.substr(begin, fAt - begin);
}

std::string_view JsonTokens::TakeString() {
    const std::size_t begin = ++fAt;
    while (fAt < fText.size() && IsPlain(fText[fAt])) ++fAt;
    fWasEscaped = false;
    if (GetCharacter() == '"') return fText.substr(begin, fAt++ - begin);
    fBuffer.assign(fText.substr(begin, fAt - begin));
    while (GetCharacter() != '"') TakeSpecial();
    ++fAt;
    return fBuffer;
}

bool JsonTokens::NextKey(std::string_view& key) {
    if (!Next('}')) return false;
    SkipBlanks();
    if (GetCharacter() != '"') Fail("key in quotes expected");
    key = TakeString();
    SkipBlanks();
    if (GetCharacter() != ':') Fail("\":\" expected");
    ++fAt;
    return true;
}

void JsonTokens::Skip() {
    std::string_view key;
    switch (Peek()) {
        case Kind::Null:
            return TakeNull();
        case Kind::Boolean:
            return static_cast<void>(TakeBoolean());
        case Kind::Number:
            return static_cast<void>(TakeNumber());
        case Kind::String:
            return static_cast<void>(TakeString());
        case Kind::List:
            for (BeginList(); NextElement();) Skip();
            return;
        case Kind::Object:
            for (BeginObject(); NextKey(key);) Skip();
            return;
    }
}

void JsonTokens::Finish() {
    SkipBlanks();
    if (fAt != fText.size()) Fail("end of the text expected");
}

void JsonTokens::GoBack(const Mark& mark) {
    fAt = mark.fAt;
    fDepth = mark.fDepth;
    fIsFirst = mark.fIsFirst;
}

void JsonTokens::FailAt(std::size_t offset, std::string text) const {
    if (offset >= fText.size()) text += ", but the text ends";
    throw JsonFailure{std::move(text), offset};
}

void JsonTokens::SkipBlanks() {
    while (fAt < fText.size() &&
           (fText[fAt] == ' ' || fText[fAt] == '\n' || fText[fAt] == '\r' || fText[fAt] == '\t')) {
        ++fAt;
    }
}

void JsonTokens::Begin() {
    if (fDepth == kMaxDepth) Fail(fmt::format("at most {} levels of nesting expected", kMaxDepth));
    ++fAt;
    ++fDepth;
    fIsFirst = true;
}

/// Steps over the comma before the next member; false at the closing bracket, which is taken.
bool JsonTokens::Next(char closing) {
    SkipBlanks();
    const bool isFirst = std::exchange(fIsFirst, false);
    if (GetCharacter() == closing) {
        ++fAt;
        --fDepth;
        return false;
    }
    if (isFirst) return true;
    if (GetCharacter() != ',') Fail(fmt::format("\",\" or \"{}\" expected", closing));
    ++fAt;
    return true;
}

void JsonTokens::TakeWord(std::string_view word) {
    if (fText.substr(fAt, word.size()) != word) Fail("value expected");
    fAt += word.size();
}

void JsonTokens::TakeDigits() {
    if (!IsDigit(GetCharacter())) Fail("digit expected");
    while (IsDigit(GetCharacter())) ++fAt;
}

/// Takes one character of a string, whatever it is.
void JsonTokens::TakeSpecial() {
    if (fAt < fText.size() && IsPlain(fText[fAt])) {
        fBuffer += fText[fAt++];
    } else if (GetCharacter() == '\\') {
        TakeEscape();
    } else if (static_cast<unsigned char>(GetCharacter()) < 0x20) {
        Fail(fAt < fText.size() ? "control character escaped in the string expected" : "closing quote expected");
    } else {
        const unicode::Character character = unicode::CharacterAt(fText, fAt);
        if (!character.fIsValid) Fail("UTF-8 expected");
        fBuffer.append(fText.substr(fAt, character.fLength));
        fAt += character.fLength;
    }
}

void JsonTokens::TakeEscape() {
    constexpr std::string_view kNames = "\"\\/bfnrt";
    constexpr std::string_view kNamed = "\"\\/\b\f\n\r\t";
    fWasEscaped = true;
    ++fAt;
    const char name = GetCharacter();
    if (name == 'u') return unicode::Append(fBuffer, TakeCodePoint());
    const std::size_t at = kNames.find(name);
    if (at == std::string_view::npos) Fail("escape expected");
    fBuffer += kNamed[at];
    ++fAt;
}

/// Takes "u" and four digits.
char32_t JsonTokens::TakeHexadecimal() {
    const std::string_view digits = fText.substr(fAt, 5).substr(1);
    std::uint16_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (result.ec != std::errc() || result.ptr != digits.data() + 4) Fail("four hexadecimal digits expected");
    fAt += 5;
    return value;
}

/// Takes "uXXXX", or "uXXXX\uXXXX" for a character beyond U+FFFF.
char32_t JsonTokens::TakeCodePoint() {
    const std::size_t begin = fAt - 1;
    const char32_t first = TakeHexadecimal();
    if (first < 0xD800 || first > 0xDFFF) return first;
    if (first > 0xDBFF || fText.substr(fAt, 2) != "\\u") FailAt(begin, "pair of surrogates expected");
    ++fAt;
    const char32_t second = TakeHexadecimal();
    if (second < 0xDC00 || second > 0xDFFF) FailAt(begin, "pair of surrogates expected");
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

}  // namespace hierfit::report
