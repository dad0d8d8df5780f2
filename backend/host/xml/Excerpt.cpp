#include "host/xml/Excerpt.h"

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"

namespace hierfit::xml {

namespace {

constexpr int kMostBefore = 60;
constexpr int kMostBehind = 40;

bool IsLineEnd(char32_t code) { return code == '\n' || code == '\r'; }

bool IsHarmless(char32_t code) {
    const bool isDirection = (code >= 0x200B && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
                             (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF;
    return !unicode::IsControl(code) && !isDirection;
}

char32_t Shown(char32_t code) {
    if (code == '\t') return ' ';
    return IsHarmless(code) ? code : unicode::kReplacement;
}

bool StartsLine(const SourceText& text, std::size_t offset) {
    return offset <= text.Begin() || IsLineEnd(text.At(text.Before(offset)).fCode);
}

bool EndsLine(const SourceText& text, std::size_t offset) {
    return offset >= text.Bytes().size() || IsLineEnd(text.At(offset).fCode);
}

}  // namespace

std::string Excerpt(const SourceText& text, std::size_t offset) {
    std::size_t at = offset;
    std::size_t caret = 0;
    for (; caret < kMostBefore && !StartsLine(text, at); ++caret) at = text.Before(at);
    std::string excerpt;
    if (!StartsLine(text, at)) {
        excerpt = "...";
        caret += excerpt.size();
    }
    for (int behind = 0; behind < kMostBehind && !EndsLine(text, at); behind += at > offset ? 1 : 0) {
        const auto [code, end] = text.At(at);
        unicode::Append(excerpt, Shown(code));
        at = end;
    }
    if (!EndsLine(text, at)) excerpt += "...";
    return excerpt + '\n' + std::string(caret, ' ') + '^';
}

}  // namespace hierfit::xml
