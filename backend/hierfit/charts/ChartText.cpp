#include "hierfit/charts/ChartText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace hierfit {

namespace {

constexpr std::size_t kNowhere = std::string::npos;
constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Where the number begins: behind blanks and a plus sign, which the library's parser does not take.
std::size_t BeginOfNumber(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == kNowhere) return kNowhere;
    const std::size_t digits = begin + (text[begin] == '+' || text[begin] == '-');
    if (digits == text.size() || !(IsDigit(text[digits]) || text[digits] == '.')) return kNowhere;  // "inf" is a word
    return text[begin] == '+' ? digits : begin;
}

/// Whether a number that no double can hold is too small rather than too large. Its size is told by where its first
/// digit other than zero stands.
bool IsTiny(std::string_view number) {
    const std::size_t exponentPlace = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, exponentPlace);
    const std::size_t leading = digits.find_first_of("123456789");
    if (leading == std::string_view::npos) return true;
    const std::size_t point = std::min(digits.find('.'), digits.size());
    double exponent = static_cast<double>(point) - static_cast<double>(leading);
    if (exponentPlace != std::string_view::npos) {
        std::size_t begin = exponentPlace + 1;
        if (number[begin] == '+') ++begin;
        const bool isNegative = number[begin] == '-';
        const std::string_view text = number.substr(begin + (isNegative ? 1 : 0));
        int power = std::numeric_limits<int>::max() / 2;
        std::from_chars(text.data(), text.data() + text.size(), power);
        exponent += isNegative ? -power : power;
    }
    return exponent < 0;
}

}  // namespace

std::string NumberToText(double number) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 6);
    return {digits.data(), end.ptr};
}

double ParseNumber(const std::string& text, bool& isWhole) {
    isWhole = false;
    const std::size_t begin = BeginOfNumber(text);
    if (begin == kNowhere) return 0;
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [behind, fault] = std::from_chars(text.data() + begin, end, number);
    if (fault == std::errc::invalid_argument) return 0;
    isWhole = behind == end;
    if (fault == std::errc()) return number;
    if (IsTiny({text.data() + begin, behind})) return 0;
    isWhole = false;
    return text[begin] == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

double ParseNumber(const std::string& text) {
    bool isWhole = false;
    return ParseNumber(text, isWhole);
}

std::size_t ReplaceFirst(std::string& text, std::string_view marker, std::string_view replacement, std::size_t from) {
    const std::size_t place = text.find(marker, from);
    if (place != kNowhere) text.replace(place, marker.size(), replacement);
    return place;
}

void ReplaceAll(std::string& text, std::string_view marker, std::string_view replacement) {
    std::string result;
    std::size_t done = 0;
    for (std::size_t place = text.find(marker); place != kNowhere; place = text.find(marker, done)) {
        result.append(text, done, place - done).append(replacement);
        done = place + marker.size();
    }
    text = result.append(text, done);
}

void EraseFromThrough(std::string& text, std::string_view begin, std::string_view end) {
    const std::size_t first = text.find(begin);
    if (first == kNowhere) return;
    const std::size_t last = text.find(end, first);
    if (last != kNowhere) text.erase(first, last + end.size() - first);
}

void RemoveFacetingBlock(std::string& xml) {
    constexpr std::string_view kEnd = "</facetLayout>";
    const std::size_t first = xml.find("<faceting");
    const std::size_t last = xml.find(kEnd);
    if (first == kNowhere || last == kNowhere || last < first) return;
    xml.erase(first, last + kEnd.size() - first);
}

namespace {

/// Erases the second element of a name at or behind a place; gives where it stood, or npos when nothing was erased.
std::size_t EraseSecond(std::string& xml, std::string_view begin, std::string_view end, std::size_t from) {
    const std::size_t first = xml.find(begin, from);
    if (first == kNowhere) return kNowhere;
    const std::size_t second = xml.find(begin, first + 2);
    if (second == kNowhere) return kNowhere;
    const std::size_t last = xml.find(end, second);
    if (last == kNowhere) return kNowhere;
    xml.erase(second, last + end.size() - second);
    return second;
}

}  // namespace

void RemoveSecondFacet(std::string& xml) {
    const std::size_t place = EraseSecond(xml, "<variableReference", "</variableReference>", 0);
    if (place != kNowhere) EraseSecond(xml, "<facetLevel ", "</facetLevel>", place);
}

}  // namespace hierfit
