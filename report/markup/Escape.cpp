#include "report/markup/Escape.h"

#include <utf8proc.h>

#include <array>

namespace hierfit::report {

namespace {

constexpr std::string_view kReplacement = "\uFFFD";
constexpr unsigned char kDelete = 0x7F;

enum class Byte : unsigned char { Plain, Markup, LineFeed, CarriageReturn, Control, Multiple };

constexpr std::array<Byte, 256> MakeBytes() {
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

// U+2400 to U+2421 are the symbols of the control characters.
void AppendSymbol(std::string& out, char control) {
    const auto code = static_cast<unsigned char>(control);
    out += "\xE2\x90";
    out += static_cast<char>(0x80 + (code == kDelete ? 0x21 : code));
}

bool IsShown(utf8proc_int32_t code) {
    const bool isControl = code < 0xA0;
    const bool isDirectional = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const bool isNoCharacter = (code >= 0xFDD0 && code <= 0xFDEF) || (code & 0xFFFE) == 0xFFFE;
    return !isControl && !isDirectional && !isNoCharacter;
}

int DirectionOf(utf8proc_int32_t code) { return utf8proc_get_property(code)->bidi_class; }

bool IsRightToLeftLetter(int direction) {
    return direction == UTF8PROC_BIDI_CLASS_R || direction == UTF8PROC_BIDI_CLASS_AL;
}

bool IsRightToLeft(utf8proc_int32_t code) {
    const int direction = DirectionOf(code);
    return IsRightToLeftLetter(direction) || direction == UTF8PROC_BIDI_CLASS_AN;
}

/// The character at a place, or -1, and the bytes that it takes, at least 1.
utf8proc_int32_t DecodeAt(std::string_view text, std::size_t at, std::size_t& length) {
    utf8proc_int32_t code = -1;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + at);
    const auto taken = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
    length = taken > 0 ? static_cast<std::size_t>(taken) : 1;
    return taken > 0 ? code : -1;
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
        if (kind == Byte::Control) AppendSymbol(fOut, byte);
        if (kind == Byte::LineFeed) fOut += fLineBreak;
        if (kind == Byte::CarriageReturn && (fAt == fText.size() || fText[fAt] != '\n')) fOut += fLineBreak;
    }

    void AppendMultiple() {
        std::size_t length = 0;
        const utf8proc_int32_t code = DecodeAt(fText, fAt, length);
        if (IsShown(code)) {
            fOut.append(fText, fAt, length);
            fHasRightToLeft = fHasRightToLeft || IsRightToLeft(code);
        } else {
            fOut += kReplacement;
        }
        fAt += length;
    }

    std::string& fOut;
    std::string_view fText;
    std::string_view fLineBreak;
    std::size_t fAt = 0;
    bool fHasRightToLeft = false;
};

}  // namespace

void AppendText(std::string& out, std::string_view text) {
    const std::size_t begin = out.size();
    Escape escape(out, text, "<br>");
    escape.Append();
    if (!escape.HasRightToLeft()) return;
    out.insert(begin, "<bdi>");
    out += "</bdi>";
}

void AppendCharacters(std::string& out, std::string_view text, std::string_view lineBreak) {
    Escape(out, text, lineBreak).Append();
}

bool BeginsRightToLeft(std::string_view text) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at += length) {
        const utf8proc_int32_t code = DecodeAt(text, at, length);
        if (code < 0) continue;
        const int direction = DirectionOf(code);
        if (direction == UTF8PROC_BIDI_CLASS_L) return false;
        if (IsRightToLeftLetter(direction)) return true;
    }
    return false;
}

}  // namespace hierfit::report
