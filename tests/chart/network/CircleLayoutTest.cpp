#include "host/chart/view/circle/CircleLayout.h"

#include <cmath>

namespace hierfit::chart {

namespace {

std::vector<std::string> Names(int count) {
    std::vector<std::string> names;
    for (int at = 0; at < count; ++at) names.push_back("District " + std::to_string(at + 1));
    return names;
}

TEST(CircleLayoutTest, HoldsEveryNodeInItsPanelAndTurnsNoNameUpsideDown) {
    for (const int count : {0, 1, 2, 3, 9, 14, 15, 40, 500}) {
        for (const std::size_t columns : {1U, 3U, 40U}) {
            const CircleLayout layout({Names(count), Names(count / 2)}, columns);
            ASSERT_TRUE(std::isfinite(layout.Width()) && layout.Width() < 1500) << count;
            EXPECT_EQ(layout.AreNamesRadial(), count > 14);
            for (int at = 0; at < count; ++at) {
                const CircleNode& node = layout.At(0, static_cast<std::size_t>(at));
                EXPECT_TRUE(node.fX >= 0 && node.fX <= layout.Width() && node.fY >= 0 && node.fY <= layout.Height());
                EXPECT_TRUE((node.fTurn >= 0 && node.fTurn <= 90.001) || (node.fTurn >= 269.999 && node.fTurn < 360));
            }
        }
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
