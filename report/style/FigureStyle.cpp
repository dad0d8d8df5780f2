#include "report/style/FigureStyle.h"

#include <charconv>

namespace hierfit::report::style {

namespace {

constexpr int kMostPlaces = 15;

constexpr NamedStyle kStyles[] = {{"plain", StyleName::Plain}, {"apa", StyleName::Apa}, {"ama", StyleName::Ama}};

}  // namespace

std::span<const NamedStyle> Styles() { return kStyles; }

std::optional<int> ReadDigits(std::string_view text) {
    int digits = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), digits);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && digits >= 0 && digits <= kMostPlaces ? std::optional(digits) : std::nullopt;
}

}  // namespace hierfit::report::style
