#include "host/chart/picture/histogram/DistributionCurve.h"

#include <algorithm>
#include <cmath>

#include "host/chart/picture/Numbers.h"
#include "host/chart/picture/histogram/Distribution.h"

namespace hierfit::chart {

namespace {

constexpr int kPoints = 121;
constexpr int kMostWholePoints = 401;
constexpr std::size_t kLeastBins = 3;
constexpr int kRealField = 2;

std::optional<Distribution> DistributionOf(const Bins& bins, const Curve& curve, std::optional<int> fieldType) {
    if (curve.fDistribution != "normal") {
        return Distribution::Make(curve.fDistribution, curve.fParameter, curve.fSecondaryParameter);
    }
    if (fieldType.value_or(kRealField) != kRealField) return std::nullopt;
    return Distribution::Make("normal", bins.Mean(), bins.Deviation());
}

/// The whole numbers between the outer edges that a count can be; evenly thinned out where they are too many.
std::vector<double> WholeNumbers(double low, double high) {
    std::vector<double> numbers;
    const double first = std::max(0.0, std::ceil(low));
    const double step = std::max(1.0, std::ceil((high - first) / (kMostWholePoints - 1)));
    for (int at = 0; at < kMostWholePoints; ++at) {
        const double number = first + step * at;
        if (number > high) break;
        if (numbers.empty() || number > numbers.back()) numbers.push_back(number);
    }
    return numbers;
}

std::vector<double> EvenNumbers(double low, double high) {
    std::vector<double> numbers;
    numbers.reserve(kPoints);
    for (int at = 0; at < kPoints; ++at) numbers.push_back(low + (high - low) * at / (kPoints - 1));
    return numbers;
}

}  // namespace

DistributionCurve MakeDistributionCurve(const Bins& bins, const Curve& curve, std::optional<int> fieldType) {
    DistributionCurve made;
    if (bins.fvBins.size() < kLeastBins || bins.fCount <= 0) return made;
    const auto distribution = DistributionOf(bins, curve, fieldType);
    if (!distribution) return made;
    made.fIsOfCounts = distribution->IsOfCounts();
    const auto numbers =
        made.fIsOfCounts ? WholeNumbers(bins.Low(), bins.High()) : EvenNumbers(bins.Low(), bins.High());
    for (const double x : numbers) {
        const auto y = Placeable(bins.fCount * bins.fWidth * distribution->Density(x));
        if (y) made.fvPoints.push_back({x, *y});
    }
    return made;
}

}  // namespace hierfit::chart
