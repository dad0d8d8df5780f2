#include "host/chart/picture/histogram/Histogram.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "host/chart/picture/histogram/Distribution.h"
#include "tests/chart/picture/PictureFaults.h"

namespace hierfit::chart {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(DistributionTest, HasKnownValues) {
    const double twoPi = 2 * std::numbers::pi;
    const std::vector<std::tuple<const char*, double, std::optional<double>, double, double>> cases = {
        {"normal", -3, 2.5, 1, std::exp(-1.28) / 2.5 / std::sqrt(twoPi)},
        {"gamma", 3, 2, 1.5, 9 * std::exp(-3)},
        {"gamma", 2, 1, -0.5, 0},
        {"gaussianinverse", 2, 3, 4, std::sqrt(3 / twoPi / 64) * std::exp(-0.375)},
        {"binomialnegative", 3, 0.25, 2, 6 * 0.015625 * 0.5625},
        {"binomialnegative", 0.5, 0.5, 1, std::sqrt(0.5) / 4},
        {"binomialnegative", 3, 1, 0, 1},
        {"poisson", 900, {}, 900, 0.013296844767098},
        {"poisson", 2, {}, 1.5, 0},
    };
    for (const auto& [name, first, second, x, density] : cases) {
        EXPECT_NEAR(Distribution::Make(name, first, second).value().Density(x), density, 1e-13) << name << " " << x;
    }
    EXPECT_EQ(Distribution::Make("gamma", 0.4, 1).value().Density(0), kInfinity);
}

TEST(DistributionTest, RefusesWhatIsImpossible) {
    const std::vector<std::tuple<const char*, std::optional<double>, std::optional<double>>> cases = {
        {"normal", 0.0, 0.0},
        {"normal", std::nan(""), 1.0},
        {"gamma", 1.0, -1.0},
        {"gamma", kInfinity, 1.0},
        {"gamma", {}, 1.0},
        {"gaussianinverse", -1.0, 1.0},
        {"gaussianinverse", 1.0, 0.0},
        {"binomialnegative", 1.0, 0.0},
        {"binomialnegative", 1.0, 1.1},
        {"poisson", 0.0, {}},
        {"Normal", 0.0, 1.0},
    };
    for (const auto& [name, first, second] : cases) EXPECT_FALSE(Distribution::Make(name, first, second)) << name;
}

using Values = std::vector<document::ChartValue>;

Histogram Read(const Curve& curve, const Values& centers, const Values& counts, std::optional<int> fieldType = {}) {
    const Sample sample = HistogramSample(curve, centers, counts);
    const ShownData data(sample.fSpecification, sample.fvData, sample.fvSettings);
    return ReadHistogram(sample.fSpecification, data, fieldType);
}

const Curve kNormal{"normal", {}, {}};
const Values kFive = {1.0, 2.0, 3.0, 4.0, 5.0};
const Values kCounts = {1.0, 5.0, 9.0, 5.0, 1.0};

TEST(HistogramTest, PutsEdgesHalfWayBetweenBins) {
    using Bins = std::vector<std::vector<double>>;
    const std::vector<std::tuple<Values, Values, Bins>> cases = {
        {{25.0, 75.0, 125.0}, {8.0, 9.0, 2.0}, {{0, 50, 8}, {50, 100, 9}, {100, 150, 2}}},
        {{7.0}, {3.0}, {{6.5, 7.5, 3}}},
        {{2.0, 1.0, 2.0}, {3.0, 4.0, 5.0}, {{0.5, 1.5, 4}, {1.5, 2.5, 8}}},
        {{0.0, 1.0, 2.0, 90.0}, {1.0, 1.0, 1.0, 1.0}, {{-0.5, 0.5, 1}, {0.5, 1.5, 1}, {1.5, 2.5, 1}, {89.5, 90.5, 1}}},
        {{kInfinity, "x", {}, 1.0, 2.0, 3.0}, {1.0, 1.0, 1.0, -2.0, std::nan(""), 6.0}, {{2.5, 3.5, 6}}},
    };
    for (const auto& [centers, counts, expected] : cases) {
        Bins bins;
        for (const Bin& bin : Read(kNormal, centers, counts).fBins.fvBins) {
            bins.push_back({bin.fLow, bin.fHigh, bin.fCount});
        }
        EXPECT_EQ(bins, expected);
    }
}

TEST(HistogramTest, LeavesOutACurveThatWouldMislead) {
    const std::vector<std::tuple<Curve, std::optional<int>, int, bool>> cases = {
        {kNormal, 2, 5, true},
        {kNormal, {}, 5, true},
        {kNormal, 1, 5, false},
        {kNormal, 2, 2, false},
        {{"poisson", 3.0, {}}, 1, 5, true},
        {{"gamma", {}, 1.0}, 2, 5, false},
        {{"gamma", 2.0, 1.0}, 0, 3, true},
    };
    for (const auto& [curve, fieldType, bins, hasCurve] : cases) {
        const Histogram histogram = Read(curve, {kFive.begin(), kFive.begin() + bins}, kCounts, fieldType);
        EXPECT_EQ(!histogram.fCurve.fvPoints.empty(), hasCurve) << curve.fDistribution << bins;
    }
}

TEST(HistogramTest, StaysSmallAndFiniteAtAnyScale) {
    const Histogram wide = Read({"poisson", 1e9, {}}, {0.0, 1e12, 2e12, 3e12}, {1.0, 1.0, 1.0, 1.0});
    EXPECT_LE(wide.fCurve.fvPoints.size(), 402U);
    const double last = 9007199254740992;  // the next whole number is no double
    const Histogram stuck = Read({"poisson", last, {}}, {last - 2, last - 1, last, last + 2}, {1.0, 1.0, 1.0, 1.0});
    EXPECT_LE(stuck.fCurve.fvPoints.size(), 5U);
    EXPECT_EQ(Read({"poisson", 3.0, {}}, {0.0, 2.0, 4.0}, {1.0, 2.0, 1.0}).fCurve.fvPoints.back().fX, 5);
    const auto show = [](const Values& centers, const Values& counts, const Curve& curve) {
        return Draw<document::HistogramPicture>(HistogramSample(curve, centers, counts));
    };
    EXPECT_LE(*show({0.05, 0.15, 0.25}, {9.0, 3.0, 1.0}, {"gamma", 0.1, 1.0}).fCounts.fHigh, 2.1 * 9) << "a pole";
    EXPECT_GT(*show(kFive, {0.0, 0.0, 0.0, 0.0, 0.0}, kNormal).fCounts.fHigh, 0);
    for (const double lone : {0.0, 1e12, -1e300}) {
        const auto picture = show({lone}, {1234567.0}, kNormal);
        EXPECT_LE(*picture.fValues.fLow, picture.fvBins[0].fLow) << lone;
        EXPECT_LT(picture.fvBins[0].fHigh, *picture.fValues.fHigh) << lone;
    }
    const double next = std::nextafter(7, 8);
    for (const Values& centers : {Values{-1e300, 0.0, 1e300}, Values{7.0, next, 8.0}, Values{1e300, 1e300}}) {
        const Values counts(centers.size(), 1e300);
        Make(HistogramSample(kNormal, centers, counts));
    }
}

}  // namespace

}  // namespace hierfit::chart
