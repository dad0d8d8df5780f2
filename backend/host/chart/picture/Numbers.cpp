#include "host/chart/picture/Numbers.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/SystemMissing.h"

namespace hierfit::chart {

namespace {

/// How far numbers reach, and how far from zero.
struct Reach {
    double fLow = std::numeric_limits<double>::infinity();
    double fHigh = -std::numeric_limits<double>::infinity();
    double fLeast = std::numeric_limits<double>::infinity();  ///< of those that are not zero
    double fGreatest = 0;
    bool fIsWhole = true;

    void Add(double number) {
        fLow = std::min(fLow, number);
        fHigh = std::max(fHigh, number);
        fIsWhole = fIsWhole && std::trunc(number) == number;
        if (number != 0) fLeast = std::min(fLeast, std::abs(number));
        fGreatest = std::max(fGreatest, std::abs(number));
    }
};

}  // namespace

bool IsFigure(double number) { return std::isfinite(number) && number != kSystemMissing; }

int DecimalsFor(double number) {
    constexpr double kMost = 8;
    return static_cast<int>(std::clamp(2 - std::floor(std::log10(std::abs(number))), 0.0, kMost));
}

std::optional<int> CommonDecimals(const std::vector<document::ChartValue>& values) {
    constexpr int kMostBeyond = 2;
    constexpr double kTooManyDigits = 1e9;
    Reach reach;
    for (const document::ChartValue& value : values) {
        const double* number = std::get_if<double>(&value);
        if (number != nullptr && IsFigure(*number)) reach.Add(*number);
    }
    if (reach.fIsWhole || reach.fGreatest >= kTooManyDigits) return std::nullopt;
    const int digits = std::min(DecimalsFor(reach.fLeast), DecimalsFor(reach.fGreatest) + kMostBeyond);
    return reach.fLow < reach.fHigh ? std::max(digits, DecimalsFor(reach.fHigh - reach.fLow) - 1) : digits;
}

std::string ShortNumber(double number) {
    constexpr double kLargestBrief = 1e5;
    const int digits = std::abs(number) < kLargestBrief ? 6 : 10;
    return fmt::format("{:.{}g}", number == 0 ? 0.0 : number, digits);
}

std::optional<double> Placeable(std::optional<double> number) {
    return number && std::abs(*number) <= kFarthest ? number : std::nullopt;
}

double RoomAbout(double number) { return std::max(0.5, std::abs(number) * 1e-6); }

}  // namespace hierfit::chart
