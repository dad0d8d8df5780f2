#include "host/chart/view/text/TextWidth.h"

#include <algorithm>
#include <span>

#include "TextWidths.h"
#include "host/chart/view/text/Characters.h"

namespace hierfit::chart {

namespace {

constexpr std::string_view kEllipsis = "\u2026";

bool IsWithin(char32_t code, std::span<const int> ranges) {
    for (std::size_t i = 0; i + 1 < ranges.size(); i += 2) {
        if (code >= static_cast<char32_t>(ranges[i]) && code <= static_cast<char32_t>(ranges[i + 1])) return true;
    }
    return false;
}

/// In thousandths of an em.
int CharacterWidth(char32_t code, bool isBold) {
    if (code < 0x20) return 0;
    const std::span<const int> ranges = widths::k_ranges;
    std::size_t before = 0;
    for (std::size_t i = 0; i < ranges.size(); i += 2) {
        const auto first = static_cast<char32_t>(ranges[i]);
        const auto last = static_cast<char32_t>(ranges[i + 1]);
        if (code >= first && code <= last) {
            const std::size_t place = before + (code - first);
            return isBold ? widths::k_bold[place] : widths::k_regular[place];
        }
        before += last - first + 1;
    }
    if (IsWithin(code, widths::k_zero)) return 0;
    return IsWithin(code, widths::k_wide) ? 1000 : widths::kOtherWidth;
}

/// The bytes of the beginning whose width stays within the limit, in thousandths of an em.
std::size_t FittingLength(std::string_view text, double limit, bool isBold) {
    double sum = 0;
    std::size_t place = 0;
    while (place < text.size()) {
        const Character character = CharacterAt(text, place);
        sum += CharacterWidth(character.fCode, isBold);
        if (sum > limit) return place;
        place += character.fLength;
    }
    return place;
}

}  // namespace

double TextWidth(std::string_view text, const TextStyle& style) {
    double sum = 0;
    for (std::size_t place = 0; place < text.size();) {
        const Character character = CharacterAt(text, place);
        sum += CharacterWidth(character.fCode, style.fIsBold);
        place += character.fLength;
    }
    return sum * style.fSize / 1000;
}

double LongestWord(std::string_view text, const TextStyle& style) {
    double longest = 0;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t end = std::min(text.find_first_of(" \n", place), text.size());
        longest = std::max(longest, TextWidth(text.substr(place, end - place), style));
        place = end + 1;
    }
    return longest;
}

std::string CutText(std::string_view text, double width, const TextStyle& style) {
    const double limit = width * 1000 / style.fSize;
    if (FittingLength(text, limit, style.fIsBold) == text.size()) return std::string(text);
    const double rest = limit - CharacterWidth(U'\u2026', style.fIsBold);
    return std::string(text.substr(0, FittingLength(text, rest, style.fIsBold))).append(kEllipsis);
}

std::string CutCharacters(std::string_view text, std::size_t count) {
    std::size_t beforeLast = 0;
    std::size_t place = 0;
    for (std::size_t i = 0; i < count && place < text.size(); ++i) {
        beforeLast = place;
        place += CharacterAt(text, place).fLength;
    }
    if (place >= text.size()) return std::string(text);
    return std::string(text.substr(0, beforeLast)).append(kEllipsis);
}

}  // namespace hierfit::chart
