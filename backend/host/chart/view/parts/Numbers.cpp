#include "host/chart/view/parts/Numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace hierfit::chart {

namespace {

constexpr double kLargestPlaceable = 1e300;
constexpr double kLargestBrief = 1e5;
constexpr double kDigitsWithinRange = 8;
constexpr double kLeastDigits = 10;
constexpr double kMostDigits = 17;  // a number as it is
constexpr double kTooManyDigits = 1e9;
constexpr int kMostDecimals = 9;
constexpr double kRounding = 1e-9;  // of a logarithm that is whole

/// The distance between ticks of a linear scale, 1, 2 or 5 times a power of ten; a scale that is rounded outwards has
/// no closer ones.
double TickStep(double span, int count) {
    const double rough = span / count;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double error = rough / power;
    if (error >= std::sqrt(50.0)) return 10 * power;
    if (error >= std::sqrt(10.0)) return 5 * power;
    return error >= std::sqrt(2.0) ? 2 * power : power;
}

}  // namespace

std::string ShortNumber(double number) {
    const int digits = std::abs(number) < kLargestBrief ? 6 : 10;
    return fmt::format("{:.{}g}", number == 0 ? 0.0 : number, digits);
}

std::string TickFormat(double low, double high, int tickCount) {
    const double span = low < high ? high - low : 2 * RoomAbout(low);
    const bool isLong = std::max(std::abs(low), std::abs(high)) >= kTooManyDigits;
    const double decimals = -std::floor(std::log10(TickStep(span, tickCount)) + kRounding);
    if (isLong || decimals > kMostDecimals) return ".12~g";
    return fmt::format(".{}f", std::max(0, static_cast<int>(decimals)));
}

double Rounded(double number) { return Rounded(number, std::abs(number)); }

double Rounded(double number, double range) {
    const double further = range > 0 && number != 0 ? std::ceil(std::log10(std::abs(number) / range)) : 0;
    const int digits = static_cast<int>(std::clamp(kDigitsWithinRange + further, kLeastDigits, kMostDigits));
    std::array<char, 32> text;
    const auto written =
        std::to_chars(text.begin(), text.end(), number == 0 ? 0.0 : number, std::chars_format::general, digits);
    double rounded = number;
    std::from_chars(text.begin(), written.ptr, rounded);
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
