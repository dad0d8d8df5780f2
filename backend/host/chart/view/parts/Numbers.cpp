#include "host/chart/view/parts/Numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace hierfit::chart {

namespace {

constexpr double kLargestPlaceable = 1e300;
constexpr double kLargestBrief = 1e5;
constexpr double kDigitsWithinRange = 8;
constexpr double kLeastDigits = 10;
constexpr double kMostDigits = 17;  // a number as it is

}  // namespace

std::string ShortNumber(double number) {
    const int digits = std::abs(number) < kLargestBrief ? 6 : 10;
    return fmt::format("{:.{}g}", number == 0 ? 0.0 : number, digits);
}

double Rounded(double number) { return Rounded(number, std::abs(number)); }

double Rounded(double number, double range) {
    const double further = range > 0 && number != 0 ? std::ceil(std::log10(std::abs(number) / range)) : 0;
    const int digits = static_cast<int>(std::clamp(kDigitsWithinRange + further, kLeastDigits, kMostDigits));
    const std::string text = fmt::format("{:.{}g}", number == 0 ? 0.0 : number, digits);
    double rounded = number;
    std::from_chars(text.data(), text.data() + text.size(), rounded);
    return rounded;
}

std::optional<double> Placeable(std::optional<double> number) {
    const bool isPlaceable = number && std::isfinite(*number) && std::abs(*number) <= kLargestPlaceable;
    return isPlaceable ? number : std::nullopt;
}

std::optional<double> PlaceableAt(const ShownVariable* variable, std::size_t row) {
    if (variable == nullptr || row >= variable->Rows()) return std::nullopt;
    return Placeable(variable->NumberAt(row));
}

double RoomAbout(double number) { return std::max(0.5, std::abs(number) * 1e-6); }

std::string WordsAt(const ShownVariable* variable, std::size_t row) {
    return variable == nullptr || row >= variable->Rows() ? std::string() : variable->Words(variable->At(row));
}

}  // namespace hierfit::chart
