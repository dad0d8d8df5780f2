#include <cmath>

#include "host/chart/view/circle/CircleLayout.h"
#include "tests/chart/view/NetworkSamples.h"

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

using Json = nlohmann::json;

std::vector<Json> LinksOf(const Sample& sample) {
    std::vector<Json> links;
    const Json view = sample.MakeJson();
    for (const Json& each : view["concat"][0]["data"]["values"]) {
        if (each.contains("x2")) links.push_back(each);
    }
    return links;
}

TEST(PairwiseViewTest, LeavesOutLinesWithoutAnEnd) {
    Sample sample = PairwiseSample("", 3, {});
    ValuesOf(sample, "edgeSource_1", "to")[0] = "nobody";
    ValuesOf(sample, "edgeSource_1", "from")[1] = {};
    EXPECT_EQ(LinksOf(sample).size(), 1U);
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows.size(), 1U);
}

TEST(PairwiseViewTest, KeepsLinesToTheirPanels) {
    Sample sample = PairwiseSample("", 3, {{"Female", "Male"}});
    ASSERT_EQ(LinksOf(sample).size(), 6U);
    EXPECT_EQ(LinksOf(sample)[0]["p"], 0);
    ValuesOf(sample, "edgeSource_1", "facet1")[0] = "Male";
    EXPECT_EQ(LinksOf(sample).size(), 5U);
    const document::ChartTable table =
        PairwiseSample("", 3, {{"Female", "Male"}, {1.0, 2.0}}).Make().fShown.fvTables[0];
    EXPECT_EQ(table.fvRows.size(), 12U);
    EXPECT_EQ(table.fvRows.front().size(), table.fvColumns.size());
}

TEST(PairwiseViewTest, CutsThePanelOffAKeyThatLostItsZeros) {
    Sample sample = PairwiseSample("", 1, {{"01"}});
    sample.fvSettings.clear();
    ValuesOf(sample, "nodeSource_1", "node")[0] = 12.0;
    EXPECT_EQ(sample.MakeJson()["concat"][0]["data"]["values"][0]["label"], "2");
}

TEST(PairwiseViewTest, DrawsALineAsWideAsItsWeightIsSmall) {
    Sample sample = PairwiseSample("", 3, {});
    ValuesOf(sample, "edgeSource_1", "weight") = {4.0, document::ChartValue(), std::numeric_limits<double>::max()};
    ValuesOf(sample, "edgeSource_1", "type") = {1.0, 0.0, 0.0};
    Json drawn;
    for (const Json& link : LinksOf(sample)) drawn.push_back({link["w"], link["s"]});
    EXPECT_EQ(drawn, Json({{0, 0}, {0, 0}, {0.25, 1}})) << "what is significant lies on top";
}

}  // namespace

}  // namespace hierfit::chart
