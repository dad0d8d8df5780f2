#include "report/markup/Escape.h"

#include <array>

#include "host/unicode/Properties.h"
#include "host/unicode/SignedFigures.h"
#include "host/unicode/Utf8.h"
#include "report/markup/PageDirection.h"

namespace hierfit::report {

namespace {

constexpr char32_t kDelete = 0x7F;

constexpr std::string_view kLeftToRight = "<bdi dir=\"ltr\">";
constexpr std::string_view kEnd = "</bdi>";

enum class Byte : unsigned char { Plain, Markup, LineFeed, CarriageReturn, Control, Multiple };

consteval std::array<Byte, 256> MakeBytes() {
    std::array<Byte, 256> bytes{};
    for (unsigned byte = 0; byte < 0x20; ++byte) bytes[byte] = Byte::Control;
    for (unsigned byte = 0x80; byte < 0x100; ++byte) bytes[byte] = Byte::Multiple;
    for (const char markup : {'&', '<', '>', '"', '\''}) bytes[static_cast<unsigned char>(markup)] = Byte::Markup;
    bytes[kDelete] = Byte::Control;
    bytes['\t'] = Byte::Plain;
    bytes['\n'] = Byte::LineFeed;
    bytes['\r'] = Byte::CarriageReturn;
    return bytes;
}

constexpr std::array<Byte, 256> kBytes = MakeBytes();

Byte KindOf(char byte) { return kBytes[static_cast<unsigned char>(byte)]; }

std::string_view EntityOf(char markup) {
    switch (markup) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        default:
            return "&#39;";
    }
}

bool IsForbidden(char32_t code) {
    const bool isDirectional = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const bool isNoCharacter = (code >= 0xFDD0 && code <= 0xFDEF) || (code & 0xFFFE) == 0xFFFE;
    return unicode::IsControl(code) || isDirectional || isNoCharacter;
}

bool IsRightToLeft(char32_t code) {
    const unicode::Direction direction = unicode::DirectionOf(code);
    return direction == unicode::Direction::RightToLeft || direction == unicode::Direction::RightToLeftNumber;
}

class Escape {
  public:
    Escape(std::string& out, std::string_view text, std::string_view lineBreak)
        : fOut(out), fText(text), fLineBreak(lineBreak) {}

    void Append() {
        while (fAt < fText.size()) {
            AppendPlain();
            if (fAt < fText.size()) AppendSpecial();
        }
    }

    bool HasRightToLeft() const { return fHasRightToLeft; }

  private:
    void AppendPlain() {
        const std::size_t begin = fAt;
        while (fAt < fText.size() && KindOf(fText[fAt]) == Byte::Plain) ++fAt;
        fOut.append(fText, begin, fAt - begin);
    }

    void AppendSpecial() {
        const char byte = fText[fAt];
        const Byte kind = KindOf(byte);
        if (kind == Byte::Multiple) return AppendMultiple();
        ++fAt;
        if (kind == Byte::Markup) fOut += EntityOf(byte);
        if (kind == Byte::Control) unicode::Append(fOut, ShownFor(static_cast<unsigned char>(byte)));
        if (kind == Byte::LineFeed) fOut += fLineBreak;
        if (kind == Byte::CarriageReturn && (fAt == fText.size() || fText[fAt] != '\n')) fOut += fLineBreak;
    }

    void AppendMultiple() {
        const unicode::Character character = unicode::LongCharacterAt(fText, fAt);
        if (character.fIsValid && !IsForbidden(character.fCode)) {
            fOut.append(fText, fAt, character.fLength);
            fHasRightToLeft = fHasRightToLeft || IsRightToLeft(character.fCode);
        } else {
            unicode::Append(fOut, unicode::kReplacement);
        }
        fAt += character.fLength;
    }

    std::string& fOut;
    std::string_view fText;
    std::string_view fLineBreak;
    std::size_t fAt = 0;
    bool fHasRightToLeft = false;
};

}  // namespace

char32_t ShownFor(char32_t code) {
    constexpr char32_t kSymbols = 0x2400;
    constexpr char32_t kSymbolOfDelete = 0x2421;
    if (code == '\t' || code == '\n' || code == '\r') return ' ';
    if (code < ' ') return kSymbols + code;
    if (code == kDelete) return kSymbolOfDelete;
    return IsForbidden(code) ? unicode::kReplacement : code;
}

void AppendText(std::string& out, std::string_view text) {
    const std::size_t begin = out.size();
    std::size_t at = 0;
    for (const unicode::Span& figure : unicode::FindTurnedFigures(text)) {
        Escape(out, text.substr(at, figure.fBegin - at), "<br>").Append();
        out += kLeftToRight;
        Escape(out, text.substr(figure.fBegin, figure.fEnd - figure.fBegin), "<br>").Append();
        out += kEnd;
        at = figure.fEnd;
    }
    Escape escape(out, text.substr(at), "<br>");
    escape.Append();
    const bool isForeign = PageDirection::IsRightToLeft() && !text.empty() && !BeginsRightToLeft(text);
    if (!isForeign && at == 0 && !escape.HasRightToLeft()) return;
    out.insert(begin, isForeign ? kLeftToRight : "<bdi>");
    out += kEnd;
}

void AppendCharacters(std::string& out, std::string_view text, std::string_view lineBreak) {
    Escape(out, text, lineBreak).Append();
}

bool BeginsRightToLeft(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const unicode::Character character = unicode::CharacterAt(text, at);
        const unicode::Direction direction = unicode::DirectionOf(character.fCode);
        if (direction == unicode::Direction::LeftToRight) return false;
        if (direction == unicode::Direction::RightToLeft) return true;
        at += character.fLength;
    }
    return false;
}

}  // namespace hierfit::report
