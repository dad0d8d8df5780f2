#include "host/chart/specification/Fragments.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "host/FetchFile.h"
#include "host/PathFactory.h"
#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/Limits.h"
#include "host/xml/Document.h"

namespace hierfit::chart {

namespace {

using Kind = MarkupPiece::Kind;

constexpr std::string_view kUse = "use";
constexpr std::string_view kFragment = "fragment";
constexpr int kMostDepth = 8;
constexpr int kMostUses = 1'000;
constexpr std::size_t kLongestName = 64;

bool IsNameCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

/// A fragment's name is a part of a file's name, so it may not lead elsewhere.
bool IsName(std::string_view name) {
    return !name.empty() && name.size() <= kLongestName && std::ranges::all_of(name, IsNameCharacter);
}

/// The name in an element such as `<use fragment="axis"/>`.
std::string NameIn(std::string_view element) {
    const auto parsed = xml::Document::Parse(std::string(element));
    const auto* document = std::get_if<0>(&parsed);
    return document ? std::string((*document)->Attribute(0, kFragment).value_or("")) : std::string();
}

/// What stands between the tags of a fragment's root.
std::optional<std::string> ContentOf(const std::string& file) {
    const std::string plain = MakePlainXml(file);
    const auto parsed = xml::Document::Parse(plain);
    const auto* document = std::get_if<0>(&parsed);
    if (!document || (*document)->Name(0) != kFragment) return std::nullopt;
    std::size_t begin = 0;
    std::size_t end = 0;
    ChartMarkup markup(plain);
    for (MarkupPiece piece; markup.Next(piece);) {
        if (piece.fKind == Kind::StartTag && begin == 0) begin = piece.fEnd;
        if (piece.fKind == Kind::EndTag) end = piece.fBegin;
    }
    return plain.substr(begin, std::max(begin, end) - begin);
}

/// One go through a chart, with the fragments that it has read.
class Expansion {
  public:
    std::string ExpandChart(std::string_view xml) {
        return *Expand(xml, [this](std::string_view use) { return Follow(use, 1).value_or(std::string(use)); });
    }

  private:
    /// The text with each `use` replaced by what the operation gives for it; nothing when that gives nothing.
    template <typename Replace>
    static std::optional<std::string> Expand(std::string_view xml, const Replace& replace);

    std::optional<std::string> Follow(std::string_view use, int depth);
    const std::optional<std::string>& Fetch(const std::string& name);

    std::map<std::string, std::optional<std::string>> fFragments;
    int fUses = 0;
    std::size_t fBytes = 0;
};

template <typename Replace>
std::optional<std::string> Expansion::Expand(std::string_view xml, const Replace& replace) {
    std::string expanded;
    ChartMarkup markup(xml);
    for (MarkupPiece piece; markup.Next(piece);) {
        const bool isTag = piece.fKind == Kind::EmptyTag || piece.fKind == Kind::StartTag;
        if (isTag && piece.fName == kUse) {
            const std::size_t begin = piece.fBegin;
            while (piece.fKind != Kind::EmptyTag && piece.fKind != Kind::EndTag && markup.Next(piece)) continue;
            const std::optional<std::string> content = replace(xml.substr(begin, piece.fEnd - begin));
            if (!content) return std::nullopt;
            expanded += *content;
        } else {
            expanded += xml.substr(piece.fBegin, piece.fEnd - piece.fBegin);
        }
    }
    return expanded;
}

std::optional<std::string> Expansion::Follow(std::string_view use, int depth) {
    if (depth > kMostDepth || ++fUses > kMostUses) return std::nullopt;
    const std::string name = NameIn(use);
    if (!IsName(name)) return std::nullopt;
    const std::optional<std::string>& content = Fetch(name);
    if (!content) return std::nullopt;
    fBytes += content->size();
    if (fBytes > kMostChartBytes) return std::nullopt;
    return Expand(*content, [this, depth](std::string_view inner) { return Follow(inner, depth + 1); });
}

const std::optional<std::string>& Expansion::Fetch(const std::string& name) {
    const auto [entry, isNew] = fFragments.try_emplace(name);
    if (isNew) {
        const std::string folder = PathFactory::getPathInstance().GetBaseDirectory() + "template/";
        entry->second = ContentOf(FetchFile::fetch(folder + name + ".xml", true, true));
    }
    return entry->second;
}

}  // namespace

std::string ExpandFragments(const std::string& xml) {
    return xml.find("<use") == std::string::npos ? xml : Expansion().ExpandChart(xml);
}

}  // namespace hierfit::chart
