#include "report/charts/layout/Scale.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace hierfit::report::charts {

namespace {

constexpr double kTooManyDigits = 1e9;
constexpr int kMostDecimals = 9;
constexpr double kRounding = 1e-9;  // of what is a whole number of steps
constexpr int kMostTicks = 50;

/// What an axis of one single number shows on either side of it.
double RoomAbout(double number) { return std::max(0.5, std::abs(number) * 1e-6); }

int DecimalsOf(double step) { return std::max(0, -static_cast<int>(std::floor(std::log10(step) + kRounding))); }

std::string TickWords(double number, int decimals) {
    if (std::abs(number) >= kTooManyDigits || decimals > kMostDecimals) return fmt::format("{:.12g}", number);
    const std::string words = fmt::format("{:.{}f}", number, decimals);
    return words.starts_with('-') && words.find_first_not_of("-0.") == std::string::npos ? words.substr(1) : words;
}

/// Whether numbers so large still differ by the step.
bool IsTooFine(const Extent& domain, double step) {
    const double largest = std::max(std::abs(domain.fLow), std::abs(domain.fHigh));
    return !(step > 0) || largest + step <= largest;
}

}  // namespace

double TickStep(double length, int count, bool isWhole) {
    const double rough = length / count;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double error = rough / power;
    double step = power;
    if (error >= std::sqrt(50.0)) {
        step = 10 * power;
    } else if (error >= std::sqrt(10.0)) {
        step = 5 * power;
    } else if (error >= std::sqrt(2.0)) {
        step = 2 * power;
    }
    return isWhole ? std::max(step, 1.0) : step;
}

void Extent::Add(double number) {
    fLow = fIsEmpty ? number : std::min(fLow, number);
    fHigh = fIsEmpty ? number : std::max(fHigh, number);
    fIsEmpty = false;
}

void Extent::Add(const Extent& other) {
    if (other.fIsEmpty) return;
    Add(other.fLow);
    Add(other.fHigh);
}

double Scale::Within(double number) const {
    return std::clamp(At(number), std::min(fStart, fEnd), std::max(fStart, fEnd));
}

Extent DomainOf(const document::PictureAxis& axis, const Extent& extent) {
    Extent domain = extent;
    if (axis.fLow) domain.Add(*axis.fLow);
    if (axis.fHigh) domain.Add(*axis.fHigh);
    if (domain.fIsEmpty) return {0, 1, false};
    domain.fLow = axis.fLow.value_or(domain.fLow);
    domain.fHigh = axis.fHigh.value_or(domain.fHigh);
    if (domain.fLow < domain.fHigh) return domain;
    const double room = RoomAbout(domain.fLow);
    return {domain.fLow - room, domain.fLow + room, false};
}

Extent NiceDomainOf(const document::PictureAxis& axis, const Extent& extent, int count) {
    Extent domain = DomainOf(axis, extent);
    if (axis.fLow || axis.fHigh || extent.fIsEmpty || extent.Length() == 0) return domain;
    const double step = TickStep(domain.Length(), count, axis.fIsWhole);
    if (IsTooFine(domain, step)) return domain;
    const double low = std::floor(domain.fLow / step + kRounding) * step;
    const double high = std::ceil(domain.fHigh / step - kRounding) * step;
    return std::isfinite(high - low) ? Extent{low, high, false} : domain;
}

std::vector<Tick> TicksOf(const Extent& domain, int count, bool isWhole) {
    std::vector<Tick> ticks;
    const double step = TickStep(domain.Length(), count, isWhole);
    if (IsTooFine(domain, step)) return ticks;
    const int decimals = DecimalsOf(step);
    const double first = std::ceil(domain.fLow / step - kRounding);
    for (int at = 0; at < kMostTicks; ++at) {
        const double number = (first + at) * step;
        if (number > domain.fHigh + step * kRounding) break;
        ticks.push_back({number, TickWords(number, decimals)});
    }
    return ticks;
}

}  // namespace hierfit::report::charts
