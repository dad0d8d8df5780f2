#include <algorithm>
#include <unordered_map>

#include "host/unicode/Utf8.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

constexpr std::string_view kEllipsis = "\u2026";
constexpr double kBeginning = 0.6;  // of the room, for what stands before an ellipsis in the middle

/// Line ends and tabulators have no place in a line.
std::string InOneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char byte) { return static_cast<unsigned char>(byte) < ' '; }, ' ');
    return line;
}

/// The bytes of the beginning that fit.
std::size_t FittingBeginning(std::string_view text, double width, const TextStyle& style) {
    double sum = 0;
    std::size_t place = 0;
    while (place < text.size()) {
        const std::size_t length = unicode::CharacterAt(text, place).fLength;
        sum += TextWidth(text.substr(place, length), style);
        if (sum > width) return place;
        place += length;
    }
    return place;
}

/// Where the end begins that fits.
std::size_t FittingEnd(std::string_view text, double width, const TextStyle& style) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < text.size(); place += unicode::CharacterAt(text, place).fLength)
        places.push_back(place);
    double sum = 0;
    std::size_t end = text.size();
    for (std::size_t at = places.size(); at-- > 0;) {
        sum += TextWidth(text.substr(places[at], end - places[at]), style);
        if (sum > width) break;
        end = places[at];
    }
    return end;
}

std::string CutMiddle(std::string_view text, double width, const TextStyle& style) {
    const double room = width - TextWidth(kEllipsis, style);
    const std::size_t beginning = FittingBeginning(text, room * kBeginning, style);
    const double rest = room - TextWidth(text.substr(0, beginning), style);
    const std::size_t end = std::max(FittingEnd(text, rest, style), beginning);
    return std::string(text.substr(0, beginning)).append(kEllipsis).append(text.substr(end));
}

/// The bytes that all texts of a group begin with, as whole characters.
std::size_t CommonBeginning(const std::vector<std::string>& texts, const std::vector<std::size_t>& group) {
    const std::string& first = texts[group.front()];
    std::size_t common = first.size();
    for (const std::size_t member : group) {
        const auto [end, other] = std::ranges::mismatch(first, texts[member]);
        common = std::min(common, static_cast<std::size_t>(end - first.begin()));
    }
    while (common > 0 && common < first.size() && !unicode::BeginsCharacter(first[common])) --common;
    return common;
}

bool AreAllDifferent(const std::vector<std::string>& texts, const std::vector<std::size_t>& group) {
    std::vector<std::string_view> seen;
    for (const std::size_t member : group) seen.emplace_back(texts[member]);
    std::ranges::sort(seen);
    return std::ranges::adjacent_find(seen) == seen.end();
}

/// Cuts texts anew that are different and were cut to the same words.
void TellApart(const std::vector<std::string>& whole, const std::vector<std::size_t>& group, double width,
               const TextStyle& style, std::vector<std::string>& cut) {
    for (const std::size_t member : group) cut[member] = CutMiddle(whole[member], width, style);
    if (AreAllDifferent(cut, group)) return;
    const std::size_t common = CommonBeginning(whole, group);
    for (const std::size_t member : group) {
        cut[member] = CutText(std::string(kEllipsis).append(whole[member].substr(common)), width, style);
    }
}

}  // namespace

std::string CutText(std::string_view text, double width, const TextStyle& style) {
    const std::string line = InOneLine(text);
    if (FittingBeginning(line, width, style) == line.size()) return line;
    const double rest = width - TextWidth(kEllipsis, style);
    return line.substr(0, FittingBeginning(line, rest, style)).append(kEllipsis);
}

std::vector<std::string> CutTexts(const std::vector<std::string>& texts, double width, const TextStyle& style) {
    std::vector<std::string> cut;
    cut.reserve(texts.size());
    std::unordered_map<std::string, std::vector<std::size_t>> groups;
    for (const std::string& text : texts) {
        cut.push_back(CutText(text, width, style));
        if (cut.back() != text) groups[cut.back()].push_back(cut.size() - 1);
    }
    for (const auto& [words, group] : groups) {
        if (group.size() > 1) TellApart(texts, group, width, style, cut);
    }
    return cut;
}

}  // namespace hierfit::report::charts
