#include "host/plausible/figures/Probability.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace hierfit::plausible {

namespace {

constexpr double kNear = 1e-6;

/// From R 4.2: 2 * pt(-abs(t), df).
TEST(Probability, IsTwoSidedForT) {
    const std::array<double, 3> cases[] = {
        {0, 5, 1},
        {1, 1, 0.5},
        {-1, 1, 0.5},
        {2.5, 7.35, 0.0394381322447},
        {0.1, 0.5, 0.946331621129},
        {40, 16.999, 2.93732663129e-18},
        {1.96, 999999, 0.0499960675855},
        {1.96, 1e6, 0.0499960675853},
        {1e155, 3, 0},
        {1e-8, 4, 0.9999999925},
        {5, 1e300, 5.73303143758e-07},
    };
    for (const auto& [t, df, p] : cases) EXPECT_NEAR(TwoSidedT(t, df).value(), p, kNear) << t;
    for (const double df : {0.0, -1.0, std::nan("")}) EXPECT_FALSE(TwoSidedT(1, df)) << df;
}

/// From R 4.2: pf(f, df1, df2, lower.tail = FALSE).
TEST(Probability, IsTheUpperTailForF) {
    const std::array<double, 4> cases[] = {
        {0, 3, 7, 1},
        {22.355640715771816, 3, 32, 5.4111907597e-08},
        {4.5, 2.5, 9.18306863804428, 0.0377479680099},
        {2, 5, 1e9, 0.0752352471382},
        {1, 1e6, 1e6, 0.5},
        {1.001, 1e7, 1e7, 0.0570135147042},
        {7.5, 24, 1655, 2.44940880489e-24},
        {1e300, 1, 1, 6.36619772368e-151},
        {1e-300, 2, 2, 1},
        {1, 0.5, 0.5, 0.5},
    };
    for (const auto& [f, df1, df2, p] : cases) EXPECT_NEAR(UpperF(f, df1, df2).value(), p, kNear) << f;
    EXPECT_FALSE(UpperF(-1, 1, 1));
    EXPECT_FALSE(UpperF(1, 0, 1));
    EXPECT_FALSE(UpperF(1, 1, -1));
}

TEST(Probability, KeepsSmallTails) {
    EXPECT_NEAR(TwoSidedT(40, 16.999).value() / 2.93732663129e-18, 1, 1e-9);
    EXPECT_NEAR(UpperF(7.5, 24, 1655).value() / 2.44940880489e-24, 1, 1e-9);
    EXPECT_NEAR(TwoSidedNormal(-1.96), 0.0499957902964, 1e-12);
}

}  // namespace

}  // namespace hierfit::plausible
