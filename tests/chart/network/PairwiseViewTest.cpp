#include <nlohmann/json.hpp>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using Json = nlohmann::json;

Json ValuesOf(const Sample& sample) {
    const Json view = Json::parse(sample.Make().fJson);
    return view["concat"][0]["data"]["values"];
}

std::vector<Json> Links(const Json& values) {
    std::vector<Json> links;
    for (const Json& each : values) {
        if (each.contains("x2")) links.push_back(each);
    }
    return links;
}

std::vector<std::string> Labels(const Json& values) {
    std::vector<std::string> labels;
    for (const Json& each : values) {
        if (each.contains("lx")) labels.push_back(each["label"]);
    }
    return labels;
}

TEST(PairwiseViewTest, StandsNodesInReverseOrderOfAppearance) {
    const Json values = ValuesOf(PairwiseSample("", 3, {}));
    EXPECT_EQ(Labels(values), (std::vector<std::string>{"Placebo", "Low dose", "Middle dose"}));
    EXPECT_EQ(Links(values).size(), 3U);
}

TEST(PairwiseViewTest, LeavesOutLinesWithoutAnEnd) {
    Sample sample = PairwiseSample("", 3, {});
    VariableOf(sample, "edgeSource_1", "to").fvValues[0] = "nobody";
    VariableOf(sample, "edgeSource_1", "from").fvValues[1] = document::ChartValue();
    EXPECT_EQ(Links(ValuesOf(sample)).size(), 1U);
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows.size(), 1U);
}

TEST(PairwiseViewTest, KeepsLinesToTheirPanels) {
    Sample sample = PairwiseSample("", 3, {{"Female", "Male"}});
    EXPECT_EQ(Links(ValuesOf(sample)).size(), 6U);
    EXPECT_EQ(ValuesOf(sample)[0]["p"], 0);
    VariableOf(sample, "edgeSource_1", "facet1").fvValues[0] = "Male";
    EXPECT_EQ(Links(ValuesOf(sample)).size(), 5U);
    const View view = PairwiseSample("", 3, {{"Female", "Male"}, {1.0, 2.0}}).Make();
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows.size(), 12U);
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows.front().size(), view.fShown.fvTables.at(0).fvColumns.size());
}

TEST(PairwiseViewTest, DrawsALineAsWideAsItsWeightIsSmall) {
    Sample sample = PairwiseSample("", 3, {});
    auto& weights = VariableOf(sample, "edgeSource_1", "weight").fvValues;
    weights = {4.0, document::ChartValue(), std::numeric_limits<double>::max()};
    VariableOf(sample, "edgeSource_1", "type").fvValues = {1.0, 0.0, 0.0};
    const std::vector<Json> links = Links(ValuesOf(sample));
    ASSERT_EQ(links.size(), 3U);
    EXPECT_EQ(links[0]["w"], 0);
    EXPECT_EQ(links[1]["w"], 0);
    EXPECT_EQ(links[2]["w"], 0.25);
    EXPECT_EQ(links[2]["s"], 1) << "what is significant lies on top";
}

TEST(PairwiseViewTest, TellsPairsWithTheirSignificance) {
    Sample sample = PairwiseSample("", 2, {});
    VariableOf(sample, "edgeSource_1", "weightInPopup").fvValues[0] = 0.6204;
    VariableOf(sample, "edgeSource_1", "type").fvValues[0] = 0.0;
    const View view = sample.Make();
    ASSERT_EQ(view.fShown.fvTables.at(0).fvRows.size(), 1U);
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows[0],
              (std::vector<std::string>{"Low dose", "Placebo", "0.620", "Not Significant"}));
    EXPECT_EQ(view.fShown.fvTables.at(0).fKeys, 2);
    EXPECT_EQ(Links(ValuesOf(sample))[0]["tip"], "Level 1 and another\nAdj. Sig. = 0.620");
}

}  // namespace

}  // namespace hierfit::chart
