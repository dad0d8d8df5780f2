#include "host/plausible/figures/Figure.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/data/Number.h"

namespace hierfit::plausible {

namespace {

constexpr int kFarthest = 10000;  ///< places that no number has

/// The place of the last digit: -2 for "0.05", 0 for "12", -19 for "1.25e-17".
int LastPlace(std::string_view text) {
    const std::size_t exponent = text.find_first_of("eE");
    const std::string_view mantissa = text.substr(0, exponent);
    const std::size_t point = mantissa.find('.');
    int place = point == std::string_view::npos ? 0 : -static_cast<int>(mantissa.size() - point - 1);
    if (exponent != std::string_view::npos) {
        std::string_view digits = text.substr(exponent + 1);
        if (digits.starts_with('+')) digits.remove_prefix(1);
        int power = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), power);
        place += std::clamp(power, -kFarthest, kFarthest);
    }
    return place;
}

double HalfUnit(int place) { return 0.5 * std::pow(10.0, place); }

}  // namespace

MaybeFigure ReadFigure(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const std::optional<double> value = data::ParseNumber(text);
    if (!value) return std::nullopt;
    return Figure{*value, data::TrimBlanks(text)};
}

double RoundingOf(const Figure& figure, double most) { return std::min(HalfUnit(LastPlace(figure.fText)), most); }

double RoundingBeside(const Figure& figure, std::initializer_list<Figure> others) {
    int place = LastPlace(figure.fText);
    if (place == 0) {
        for (const Figure& other : others) place = std::min(place, LastPlace(other.fText));
    }
    return HalfUnit(place);
}

}  // namespace hierfit::plausible
