#include "report/docx/Runs.h"

#include <algorithm>

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"
#include "report/markup/Escape.h"
#include "report/markup/PageDirection.h"

namespace hierfit::report::docx {

namespace {

constexpr std::string_view kTextStart = "<w:t xml:space=\"preserve\">";
constexpr std::string_view kLineBreak = "</w:t><w:br/><w:t xml:space=\"preserve\">";
constexpr std::string_view kBlanks = " \t\r\n";

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Blanks at the ends of a text, or of a line of it, get lost where they are not asked to be kept.
bool HasBlanksAtEnds(std::string_view text) {
    return kBlanks.find(text.front()) != std::string_view::npos ||
           kBlanks.find(text.back()) != std::string_view::npos || text.find_first_of("\r\n") != std::string_view::npos;
}

void AppendRun(std::string& out, std::string_view text, std::string_view properties, bool isRightToLeft) {
    if (text.empty()) return;
    out += "<w:r>";
    if (!properties.empty() || isRightToLeft) {
        out.append("<w:rPr>").append(properties).append(isRightToLeft ? "<w:rtl/></w:rPr>" : "</w:rPr>");
    }
    out += HasBlanksAtEnds(text) ? kTextStart : std::string_view("<w:t>");
    AppendCharacters(out, text, kLineBreak);
    out += "</w:t></w:r>";
}

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

/// Parts a text at turns of its direction. What has no direction of its own goes with both its sides where they agree,
/// else with the paragraph; digits stay with letters before them.
void AppendByDirection(std::string& out, std::string_view text, std::string_view properties) {
    const bool isBase = BeginsRightToLeft(text);
    bool isRightToLeft = isBase;
    std::size_t begin = 0;
    std::size_t strongEnd = 0;  // behind the last character that the run must hold
    for (std::size_t at = 0; at < text.size();) {
        const unicode::Character character = unicode::CharacterAt(text, at);
        const unicode::Direction direction = unicode::DirectionOf(character.fCode);
        const bool isNeutral = direction == unicode::Direction::Neither;
        if (!isNeutral && (direction != unicode::Direction::LeftToRight) != isRightToLeft) {
            const std::size_t end = isRightToLeft == isBase ? at : strongEnd;
            AppendRun(out, text.substr(begin, end - begin), properties, isRightToLeft);
            isRightToLeft = !isRightToLeft;
            begin = end;
        }
        at += character.fLength;
        if (!isNeutral || (!isRightToLeft && IsDigit(text[at - 1]))) strongEnd = at;
    }
    const std::size_t end = isRightToLeft == isBase ? text.size() : strongEnd;
    AppendRun(out, text.substr(begin, end - begin), properties, isRightToLeft);
    AppendRun(out, text.substr(end), properties, isBase);
}

}  // namespace

void AppendRuns(std::string& out, std::string_view text, std::string_view properties) {
    if (IsAscii(text)) return AppendRun(out, text, properties, false);
    AppendByDirection(out, text, properties);
}

void AppendParagraphStart(std::string& out, std::string_view style, std::string_view properties) {
    out.append("<w:p><w:pPr><w:pStyle w:val=\"").append(style).append("\"/>").append(properties).append("</w:pPr>");
}

std::string_view DirectionOf(std::string_view text) {
    if (BeginsRightToLeft(text)) return "<w:bidi/>";
    return PageDirection::IsRightToLeft() ? "<w:jc w:val=\"right\"/>" : "";
}

std::string_view DirectionInMiddle(std::string_view text) { return BeginsRightToLeft(text) ? "<w:bidi/>" : ""; }

void AppendParagraph(std::string& out, std::string_view style, std::string_view text, std::string_view properties) {
    AppendParagraphStart(out, style, std::string(properties).append(DirectionOf(text)));
    AppendRuns(out, text);
    out += kParagraphEnd;
}

void AppendField(std::string& out, std::string_view instruction, std::string_view result, std::string_view properties) {
    out.append("<w:fldSimple w:instr=\" ").append(instruction).append(" \">");
    AppendRuns(out, result, properties);
    out += "</w:fldSimple>";
}

void AppendNumber(std::string& out, std::string_view name, long number) {
    out.append(" ").append(name).append("=\"").append(std::to_string(number)).append("\"");
}

}  // namespace hierfit::report::docx
