#include "host/chart/specification/ChartMarkup.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/unicode/Utf8.h"

namespace hierfit::chart {

namespace {

using Kind = MarkupPiece::Kind;

constexpr std::string_view kSectionBegin = "<![CDATA[";
constexpr std::string_view kSectionEnd = "]]>";

/// Elements that hold words which others write.
constexpr std::array<std::string_view, 9> kElementsOfWords{"title", "subtitle", "caption", "footnote", "axisTitle",
                                                           "popup", "heading",  "entry",   "unless"};

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// Length in bytes of the character at the front when XML forbids it, else 0.
std::size_t ForbiddenLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x20) return IsBlank(text[0]) ? 0 : 1;
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ? 3 : 0;
}

std::string DropForbidden(std::string_view text) {
    std::string kept;
    kept.reserve(text.size());
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t forbidden = ForbiddenLength(text.substr(at));
        if (forbidden > 0) {
            kept.append(text.substr(begin, at - begin));
            begin = at + forbidden;
        }
        at += std::max<std::size_t>(forbidden, 1);
    }
    return kept.append(text.substr(begin));
}

/// Appends a section; between two sections nothing can end one.
void AppendSection(std::string& out, std::string_view section) {
    std::string_view words = section.substr(kSectionBegin.size());
    if (words.ends_with(kSectionEnd)) words.remove_suffix(kSectionEnd.size());
    out += kSectionBegin;
    for (std::size_t at; (at = words.find(kSectionEnd)) != std::string_view::npos; words.remove_prefix(at + 2)) {
        out.append(words.substr(0, at + 2)).append(kSectionEnd).append(kSectionBegin);
    }
    out.append(words).append(kSectionEnd);
}

}  // namespace

bool ChartMarkup::Next(MarkupPiece& piece) {
    if (fAt == fXml.size()) return false;
    const std::string_view rest = fXml.substr(fAt);
    if (rest[0] != '<') {
        piece = {Kind::Text, fAt, std::min(fXml.find('<', fAt), fXml.size()), {}};
    } else if (rest.starts_with(kSectionBegin)) {
        piece = {Kind::Section, fAt, EndOfSection(), {}};
    } else if (rest.starts_with("<!--")) {
        piece = {Kind::Aside, fAt, EndOf("-->", fAt + 4), {}};
    } else if (rest.starts_with("<?")) {
        piece = {Kind::Aside, fAt, EndOf("?>", fAt + 2), {}};
    } else {
        piece = ReadTag();
    }
    fAt = piece.fEnd;
    return true;
}

MarkupPiece ChartMarkup::ReadTag() {
    MarkupPiece piece{Kind::StartTag, fAt, EndOfTag(), {}};
    std::string_view tag = fXml.substr(fAt + 1, piece.fEnd - fAt - 1);
    if (tag.starts_with('/')) {
        piece.fKind = Kind::EndTag;
        tag.remove_prefix(1);
    } else if (tag.starts_with('!')) {
        piece.fKind = Kind::Aside;
    } else if (tag.ends_with("/>")) {
        piece.fKind = Kind::EmptyTag;
    }
    piece.fName = tag.substr(0, tag.find_first_of(" \t\n\r/>"));
    fOpen = piece.fKind == Kind::StartTag ? piece.fName : std::string_view();
    return piece;
}

std::size_t ChartMarkup::EndOf(std::string_view mark, std::size_t from) const {
    const std::size_t at = fXml.find(mark, from);
    return at == std::string_view::npos ? fXml.size() : at + mark.size();
}

/// A bracket in quotes ends no tag.
std::size_t ChartMarkup::EndOfTag() const {
    char quote = '\0';
    for (std::size_t at = fAt; at < fXml.size(); ++at) {
        const char c = fXml[at];
        if (quote != '\0') {
            if (c == quote) quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        }
    }
    return fXml.size();
}

std::size_t ChartMarkup::EndOfSection() {
    const std::size_t words = fAt + kSectionBegin.size();
    if (std::ranges::find(kElementsOfWords, fOpen) != kElementsOfWords.end() && !fvUnclosed.contains(fOpen)) {
        const std::size_t end = fXml.find(std::string("]]></").append(fOpen) + '>', words);
        if (end != std::string_view::npos) return end + kSectionEnd.size();
        fvUnclosed.insert(fOpen);
    }
    return EndOf(kSectionEnd, words);
}

std::string MakePlainXml(std::string xml) {
    const std::string kept = DropForbidden(unicode::MakeUtf8(std::move(xml)));
    std::string plain;
    plain.reserve(kept.size());
    ChartMarkup markup(kept);
    for (MarkupPiece piece; markup.Next(piece);) {
        const std::string_view bytes = std::string_view(kept).substr(piece.fBegin, piece.fEnd - piece.fBegin);
        if (piece.fKind == Kind::Section) {
            AppendSection(plain, bytes);
        } else {
            plain += bytes;
        }
    }
    return plain;
}

}  // namespace hierfit::chart
