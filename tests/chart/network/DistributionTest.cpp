#include "host/chart/view/histogram/Distribution.h"

#include <cmath>
#include <limits>

namespace hierfit::chart {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Distribution Make(const char* name, double first, std::optional<double> second) {
    return Distribution::Make(name, first, second).value();
}

struct Moments {
    double fTotal = 0;
    double fMean = 0;
    double fVariance = 0;
};

/// Sums over even steps from the middle of the first to the middle of the last.
Moments Integrate(const Distribution& distribution, double first, double step, int count) {
    Moments moments;
    double square = 0;
    for (int at = 0; at < count; ++at) {
        const double x = first + step * at;
        const double mass = distribution.Density(x) * step;
        moments.fTotal += mass;
        moments.fMean += mass * x;
        square += mass * x * x;
    }
    moments.fVariance = square - moments.fMean * moments.fMean;
    return moments;
}

TEST(DistributionTest, HasTheMomentsOfItsParameters) {
    struct Case {
        const char* fName;
        double fFirst;
        std::optional<double> fSecond;
        double fStep;
        double fMean;
        double fVariance;
    };
    const std::vector<Case> cases = {
        {"normal", -3, 2.5, 0.01, -3, 6.25},
        {"gamma", 3.15, 0.0259, 0.05, 3.15 / 0.0259, 3.15 / 0.0259 / 0.0259},
        {"gamma", 1, 2, 0.001, 0.5, 0.25},
        {"gaussianinverse", 28.15, 137.5, 0.02, 28.15, 28.15 * 28.15 * 28.15 / 137.5},
        {"binomialnegative", 0.9, 0.098, 1, 0.9 * 0.902 / 0.098, 0.9 * 0.902 / 0.098 / 0.098},
        {"binomialnegative", 40, 0.5, 1, 40, 80},
        {"poisson", 4.2, {}, 1, 4.2, 4.2},
        {"poisson", 900, {}, 1, 900, 900},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::string(each.fName) + " " + std::to_string(each.fFirst));
        const Distribution distribution = Make(each.fName, each.fFirst, each.fSecond);
        const bool isWhole = distribution.IsOfCounts();
        const double first = std::string(each.fName) == "normal" ? -103 : isWhole ? 0 : each.fStep / 2;
        const Moments moments = Integrate(distribution, first, each.fStep, isWhole ? 3000 : 40000);
        EXPECT_NEAR(moments.fTotal, 1, 1e-4);
        EXPECT_NEAR(moments.fMean, each.fMean, 1e-3 * std::abs(each.fMean));
        EXPECT_NEAR(moments.fVariance, each.fVariance, 2e-3 * each.fVariance);
    }
}

TEST(DistributionTest, HasKnownValues) {
    EXPECT_NEAR(Make("normal", 0, 1).Density(1), 0.2419707245191434, 1e-14);
    EXPECT_NEAR(Make("gamma", 2, 1).Density(1), std::exp(-1), 1e-14);
    EXPECT_NEAR(Make("gamma", 1, 3).Density(0), 3, 1e-12);
    EXPECT_NEAR(Make("gaussianinverse", 1, 1).Density(1), 0.3989422804014327, 1e-14);
    EXPECT_NEAR(Make("binomialnegative", 3, 0.25).Density(2), 6 * 0.015625 * 0.5625, 1e-14);
    EXPECT_NEAR(Make("binomialnegative", 3, 1).Density(0), 1, 1e-14);
    EXPECT_NEAR(Make("poisson", 2, {}).Density(3), 8.0 / 6 * std::exp(-2), 1e-14);
}

TEST(DistributionTest, IsZeroWhereItHasNoValues) {
    EXPECT_EQ(Make("gamma", 2, 1).Density(-0.5), 0);
    EXPECT_EQ(Make("gaussianinverse", 1, 1).Density(0), 0);
    EXPECT_EQ(Make("poisson", 2, {}).Density(1.5), 0);
    EXPECT_EQ(Make("binomialnegative", 2, 0.5).Density(-1), 0);
    EXPECT_EQ(Make("gamma", 0.4, 1).Density(0), kInfinity);
}

TEST(DistributionTest, RefusesWhatIsImpossible) {
    struct Case {
        const char* fName;
        std::optional<double> fFirst;
        std::optional<double> fSecond;
    };
    const std::vector<Case> cases = {
        {"normal", 0.0, 0.0},
        {"normal", 0.0, {}},
        {"normal", std::nan(""), 1.0},
        {"gamma", 0.0, 1.0},
        {"gamma", 1.0, -1.0},
        {"gamma", kInfinity, 1.0},
        {"gamma", {}, 1.0},
        {"gaussianinverse", -1.0, 1.0},
        {"gaussianinverse", 1.0, 0.0},
        {"binomialnegative", 1.0, 0.0},
        {"binomialnegative", 1.0, 1.1},
        {"binomialnegative", 0.0, 0.5},
        {"poisson", 0.0, {}},
        {"poisson", {}, {}},
        {"Normal", 0.0, 1.0},
        {"", 1.0, 1.0},
    };
    for (const Case& each : cases) {
        EXPECT_FALSE(Distribution::Make(each.fName, each.fFirst, each.fSecond)) << each.fName;
    }
}

}  // namespace

}  // namespace hierfit::chart
