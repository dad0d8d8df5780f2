#include "report/charts/layout/text/TextWidth.h"

#include <algorithm>
#include <span>

#include "TextWidths.h"
#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

constexpr int kEm = 1000;

/// In thousandths of an em.
int CharacterWidth(char32_t code, bool isBold) {
    if (unicode::IsDirectionMark(code)) return 0;
    const std::span<const widths::Run> bold(widths::kBoldRuns);
    const std::span<const widths::Run> runs = isBold ? bold : std::span<const widths::Run>(widths::kRegularRuns);
    const std::uint16_t* table = isBold ? widths::kBoldWidths : widths::kRegularWidths;
    const auto run = std::ranges::lower_bound(runs, code, {}, &widths::Run::fLast);
    return run == runs.end() || code < run->fFirst ? kEm : table[run->fPlace + (code - run->fFirst)];
}

}  // namespace

double TextWidth(std::string_view text, const TextStyle& style) {
    long sum = 0;
    for (std::size_t place = 0; place < text.size();) {
        const unicode::Character character = unicode::CharacterAt(text, place);
        sum += CharacterWidth(ShownFor(character.fCode), style.fIsBold);
        place += character.fLength;
    }
    return static_cast<double>(sum) * style.fSize / kEm;
}

double LongestWord(std::string_view text, const TextStyle& style) {
    double longest = 0;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t end = std::min(text.find_first_of(" \n*", place), text.size());
        const std::size_t sign = end < text.size() && text[end] == '*' ? 1 : 0;
        longest = std::max(longest, TextWidth(text.substr(place, end + sign - place), style));
        place = end + 1;
    }
    return longest;
}

double WidestLine(const std::vector<std::string>& lines, const TextStyle& style) {
    double widest = 0;
    for (const std::string& line : lines) widest = std::max(widest, TextWidth(line, style));
    return widest;
}

}  // namespace hierfit::report::charts
