#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

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
