#include "host/chart/view/circle/CircleLayout.h"

#include <cmath>

namespace hierfit::chart {

namespace {

std::vector<std::string> Names(int count) {
    std::vector<std::string> names;
    for (int at = 0; at < count; ++at) names.push_back("District " + std::to_string(at + 1));
    return names;
}

TEST(CircleLayoutTest, GoesFromTheTopClockwise) {
    const CircleLayout layout({Names(4)}, 1);
    EXPECT_NEAR(layout.At(0, 0).fX, layout.At(0, 2).fX, 1e-9);
    EXPECT_LT(layout.At(0, 0).fY, layout.At(0, 2).fY);
    EXPECT_GT(layout.At(0, 1).fX, layout.At(0, 3).fX);
    EXPECT_EQ(layout.At(0, 0).fBaseline, "bottom");
    EXPECT_EQ(layout.At(0, 1).fSide, "left");
    EXPECT_EQ(layout.At(0, 2).fBaseline, "top");
    EXPECT_EQ(layout.At(0, 3).fSide, "right");
}

TEST(CircleLayoutTest, PutsTwoNodesLevel) {
    const CircleLayout layout({Names(2)}, 1);
    EXPECT_NEAR(layout.At(0, 0).fY, layout.At(0, 1).fY, 1e-9);
    EXPECT_LT(layout.At(0, 0).fX, layout.At(0, 1).fX);
}

TEST(CircleLayoutTest, HoldsEveryNodeInItsPanel) {
    for (const int count : {0, 1, 2, 3, 9, 14, 15, 40, 500}) {
        for (const std::size_t columns : {1U, 3U, 40U}) {
            const CircleLayout layout({Names(count), Names(count / 2)}, columns);
            ASSERT_TRUE(std::isfinite(layout.Width()) && layout.Width() < 1500) << count;
            for (int at = 0; at < count; ++at) {
                const CircleNode& node = layout.At(0, static_cast<std::size_t>(at));
                EXPECT_TRUE(node.fX >= 0 && node.fX <= layout.Width() && node.fY >= 0 && node.fY <= layout.Height());
                EXPECT_TRUE(node.fTurn >= 0 && node.fTurn < 360);
            }
        }
    }
}

TEST(CircleLayoutTest, TurnsNamesBeyondFourteenAndNeverUpsideDown) {
    EXPECT_FALSE(CircleLayout({Names(14)}, 1).AreNamesRadial());
    const CircleLayout layout({Names(15)}, 1);
    ASSERT_TRUE(layout.AreNamesRadial());
    for (std::size_t at = 0; at < 15; ++at) {
        const double turn = layout.At(0, at).fTurn;
        EXPECT_TRUE(turn <= 90.001 || turn >= 269.999) << turn;
    }
}

TEST(CircleLayoutTest, LeavesOutNamesThatWouldTouch) {
    const CircleLayout layout({Names(500)}, 1);
    EXPECT_EQ(layout.At(0, 0).fLabel, "District 1");
    EXPECT_TRUE(layout.At(0, 1).fLabel.empty());
    EXPECT_FALSE(CircleLayout({Names(120)}, 1).At(0, 1).fLabel.empty());
}

}  // namespace

}  // namespace hierfit::chart
