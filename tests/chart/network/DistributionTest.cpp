#include "host/chart/view/histogram/Distribution.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace hierfit::chart {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(DistributionTest, HasKnownValues) {
    const double twoPi = 2 * std::numbers::pi;
    const std::vector<std::tuple<const char*, double, std::optional<double>, double, double>> cases = {
        {"normal", -3, 2.5, 1, std::exp(-1.28) / 2.5 / std::sqrt(twoPi)},
        {"gamma", 3, 2, 1.5, 9 * std::exp(-3)},
        {"gamma", 1, 3, 0, 3},
        {"gamma", 2, 1, -0.5, 0},
        {"gaussianinverse", 2, 3, 4, std::sqrt(3 / twoPi / 64) * std::exp(-0.375)},
        {"gaussianinverse", 1, 1, 0, 0},
        {"binomialnegative", 3, 0.25, 2, 6 * 0.015625 * 0.5625},
        {"binomialnegative", 0.5, 0.5, 1, std::sqrt(0.5) / 4},
        {"binomialnegative", 3, 1, 0, 1},
        {"binomialnegative", 2, 0.5, -1, 0},
        {"poisson", 2, {}, 3, 8.0 / 6 * std::exp(-2)},
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
    for (const auto& [name, first, second] : cases) EXPECT_FALSE(Distribution::Make(name, first, second)) << name;
}

}  // namespace

}  // namespace hierfit::chart
