#include <limits>

#include "tests/chart/picture/PictureFaults.h"

namespace hierfit::chart {

namespace {

using document::CirclePicture;
using Texts = std::vector<std::string>;

std::vector<document::CircleLink> LinksOf(const Sample& sample) {
    std::vector<document::CircleLink> links;
    for (const document::CirclePanel& panel : Draw<CirclePicture>(sample).fvPanels) {
        links.insert(links.end(), panel.fvLinks.begin(), panel.fvLinks.end());
    }
    return links;
}

Texts NamesOf(const Sample& sample) {
    Texts names;
    for (const document::CirclePanel& panel : Draw<CirclePicture>(sample).fvPanels) {
        for (const document::CircleNode& node : panel.fvNodes) names.push_back(node.fName);
    }
    return names;
}

TEST(CirclePictureTest, LeavesOutLinesWithoutAnEnd) {
    Sample sample = PairwiseSample(3, {});
    ValuesOf(sample, "edgeSource_1", "to")[0] = "nobody";
    ValuesOf(sample, "edgeSource_1", "from")[1] = {};
    ValuesOf(sample, "edgeSource_1", "from")[2] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(LinksOf(sample).empty());
    EXPECT_TRUE(Make(sample).fvTables.at(0).fvRows.empty());
}

TEST(CirclePictureTest, KeepsLinesToTheirPanels) {
    Sample sample = PairwiseSample(3, {{"Female", "Male"}});
    EXPECT_EQ(LinksOf(sample).size(), 6U);
    ValuesOf(sample, "edgeSource_1", "facet1")[0] = "Male";
    EXPECT_EQ(LinksOf(sample).size(), 5U);
    const document::ChartTable table = Make(PairwiseSample(3, {{"Female", "Male"}, {1.0, 2.0}})).fvTables[0];
    EXPECT_EQ(table.fvRows.size(), 12U);
    EXPECT_EQ(table.fvRows.front().size(), table.fvColumns.size());
}

TEST(CirclePictureTest, NamesNodesAsTablesDo) {
    const KEST_Variable decimal({"arm", {}, {8, KEST_FormatType::Numeric, 1}, 2, {}});
    Sample sample = PairwiseSample(1, {{"01"}});
    sample.fvSettings.clear();
    ValuesOf(sample, "nodeSource_1", "node")[0] = 12.0;
    EXPECT_EQ(NamesOf(sample), Texts{"2"}) << "the panel's key has lost its zero";
    VariableSetting setting;
    setting.fName = "node";
    setting.fpVariable = &decimal;
    sample.fvSettings = {setting};
    EXPECT_EQ(NamesOf(sample), Texts{"2.0"});
    ValuesOf(sample, "nodeSource_1", "node")[0] = "01B";
    EXPECT_EQ(NamesOf(sample), Texts{"B"});
}

TEST(CirclePictureTest, TellsNodesOfOneNameApart) {
    Sample sample = PairwiseSample(2, {});
    sample.fvSettings[0].fvLabels = {{"0L100", "Low"}, {"0L101", "Low"}};
    EXPECT_EQ(NamesOf(sample), (Texts{"Low (0L100)", "Low (0L101)"}));
    EXPECT_EQ(Make(sample).fvTables[0].fvRows[0][0], "Low (0L101)");
    EXPECT_EQ(Draw<CirclePicture>(sample).fvPanels[0].fvNodes[0].fTip, "Treatment arm: Low (0L100)");
    EXPECT_EQ(NamesOf(PairwiseSample(1, {{"u", "v"}})), (Texts{"Placebo", "Placebo"})) << "each in its panel";
}

TEST(CirclePictureTest, DrawsALineAsWideAsItsWeightIsSmall) {
    Sample sample = PairwiseSample(3, {});
    ValuesOf(sample, "edgeSource_1", "weight") = {4.0, document::ChartValue(), std::numeric_limits<double>::max()};
    ValuesOf(sample, "edgeSource_1", "type") = {1.0, 0.0, 0.0};
    std::vector<double> shares;
    for (const document::CircleLink& link : LinksOf(sample)) shares.push_back(link.fShare);
    EXPECT_EQ(shares, (std::vector<double>{0.25, 0, 0}));
    const document::PictureEmphasis emphasis = Draw<CirclePicture>(sample).fEmphasis;
    EXPECT_EQ(emphasis, (document::PictureEmphasis{"Significant", "Not Significant", true}));
    ValuesOf(sample, "edgeSource_1", "type") = {0.0, 0.0, 0.0};
    EXPECT_EQ(Draw<CirclePicture>(sample).fEmphasis.fSetOff, "") << "none is";
}

TEST(CirclePictureTest, DrawsOfVeryManyLinesSomeOfEachPanel) {
    const document::Picture picture = Make(PairwiseSample(150, {{"u", "v"}}));  // 22,350 lines
    EXPECT_EQ(picture.fvNotes, Texts{"20000 of 22350 marks are drawn."});
    EXPECT_EQ(picture.fvTables[0].fvRows.size(), 22350U);
    for (const document::CirclePanel& panel : std::get<CirclePicture>(picture.fContent).fvPanels) {
        EXPECT_EQ(panel.fvLinks.size(), 10000U);
    }
}

}  // namespace

}  // namespace hierfit::chart
