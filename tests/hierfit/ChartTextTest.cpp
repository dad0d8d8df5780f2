#include <gtest/gtest.h>

#include <limits>

#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/ContrastGroup.h"
#include "hierfit/charts/NodeEdge.h"

namespace hierfit::test {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(ChartText, ParsesNumbersAtTheBeginOfATextAndTellsWhetherTheyAreAll) {
    const struct {
        std::string fText;
        double fNumber;
        bool fIsWhole;
    } cases[] = {
        {"2.5", 2.5, true},
        {"+2", 2, true},
        {"-.5e1", -5, true},
        {" 3", 3, true},
        {"3 ", 3, false},
        {"3x", 3, false},
        {"__MISSING__", 0, false},
        {"", 0, false},
        {"-", 0, false},
        {".", 0, false},
        {"+-2", 0, false},
        {"inf", 0, false},
        {"nan", 0, false},
        {"1e400", kLargest, false},
        {"-1e400", -kLargest, false},
        {"1e-400", 0, true},
        {"5e-324", 5e-324, true},
        {"0x10", 0, false},
        {"0." + std::string(400, '0') + "1", 0, true},
        {std::string(400, '9') + "e-5", kLargest, false},
        {"0.1e+400", kLargest, false},
    };
    for (const auto& one : cases) {
        bool isWhole = !one.fIsWhole;
        EXPECT_EQ(ParseNumber(one.fText, isWhole), one.fNumber) << one.fText;
        EXPECT_EQ(isWhole, one.fIsWhole) << one.fText;
    }
}

TEST(ChartText, WritesNumbersAsStreamsDo) {
    EXPECT_EQ(NumberToText(16.0 / 3), "5.33333");
    EXPECT_EQ(NumberToText(9), "9");
    EXPECT_EQ(NumberToText(1234567), "1.23457e+06");
    EXPECT_EQ(NumberToText(0.00001), "1e-05");
    EXPECT_EQ(NumberToText(std::numeric_limits<double>::lowest()), "-1.79769e+308");
}

TEST(ChartText, ReplacesAndCuts) {
    std::string text = "^1 and ^1";
    EXPECT_EQ(ReplaceFirst(text, "^1", "a ^1"), 0U);
    EXPECT_EQ(ReplaceFirst(text, "^2", "b"), std::string::npos);
    EXPECT_EQ(text, "a ^1 and ^1");
    ReplaceAll(text, "^1", "^1^1");
    EXPECT_EQ(text, "a ^1^1 and ^1^1");
    EraseFromThrough(text, "and", "!");
    EraseFromThrough(text, "a ", "^1");
    EXPECT_EQ(text, "^1 and ^1^1");
}

const char* const kBoth =
    "<faceting><variableReference name=\"a\"></variableReference><variableReference name=\"b\"></variableReference>"
    "</faceting><facetLayout><facetLevel depth=\"1\"></facetLevel><facetLevel depth=\"2\"></facetLevel></facetLayout>";

TEST(ChartText, CutsPanelsOutOfChartXml) {
    const struct {
        void (*fCut)(std::string&);
        std::string fXml;
        std::string fCutXml;
    } cases[] = {
        {RemoveFacetingBlock, std::string("<p/>") + kBoth + "<q/>", "<p/><q/>"},
        {RemoveFacetingBlock, "</facetLayout><faceting>", "</facetLayout><faceting>"},
        {RemoveFacetingBlock, "<faceting>", "<faceting>"},
        {RemoveSecondFacet, kBoth,
         "<faceting><variableReference name=\"a\"></variableReference></faceting>"
         "<facetLayout><facetLevel depth=\"1\"></facetLevel></facetLayout>"},
        {RemoveSecondFacet, "<facetLevel 1></facetLevel><facetLevel 2></facetLevel>",
         "<facetLevel 1></facetLevel><facetLevel 2></facetLevel>"},
        {RemoveSecondFacet, "<variableReference/><facetLevel 1></facetLevel><facetLevel 2></facetLevel>",
         "<variableReference/><facetLevel 1></facetLevel><facetLevel 2></facetLevel>"},
    };
    for (const auto& one : cases) {
        std::string xml = one.fXml;
        one.fCut(xml);
        EXPECT_EQ(xml, one.fCutXml) << one.fXml;
    }
}

TEST(NodeEdge, WeighsSignificances) {
    const double limits[] = {0.0001, 0.0005, 0.001, 0.005, 0.01, 0.05, 0.1, 0.2};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(SignificanceToWeight(limits[i]), 8 - i) << limits[i];
        EXPECT_EQ(SignificanceToWeight(limits[i] * 0.999), 9 - i) << limits[i];
    }
    EXPECT_EQ(SignificanceToWeight(std::numeric_limits<double>::quiet_NaN()), 1);
}

TEST(NodeEdge, LaysNodesOnAnEllipseFromTheTop) {
    double radius = 0;
    EXPECT_TRUE(ComputeNodeGeometry(0, radius).empty());
    EXPECT_EQ(radius, 1);
    for (const std::size_t n : {1U, 2U, 7U, 40U}) {
        const std::vector<NodeGeometry> nodes = ComputeNodeGeometry(n, radius);
        ASSERT_EQ(nodes.size(), n);
        for (std::size_t k = 0; k < n; ++k) {
            const double x = (nodes[k].fFromX - nodes[k].fToX) / radius;
            const double y = (nodes[k].fFromY - nodes[k].fToY) / (radius / 2);
            EXPECT_NEAR(x * x + y * y, 1, 1e-12);
            EXPECT_LT(nodes[k].fFromX, nodes[k].fToX);
            EXPECT_EQ(nodes[k].fFromY, static_cast<double>(n - k));
        }
    }
    EXPECT_EQ(LabelOffset(1), -0.4);
    EXPECT_EQ(LabelOffset(2), -0.4);
    EXPECT_EQ(LabelOffset(5), -1.0);
}

std::string Guides(int count) {
    std::string xml = "<plot>";
    for (int i = 0; i < count; ++i) xml += "<lineGuide y=\"00\"><unless>whenText</unless></lineGuide>";
    return xml + "</plot>";
}

std::string Guide(const std::string& y, const std::string& unless) {
    return "<lineGuide y=\"" + y + "\"><unless>" + unless + "</unless></lineGuide>";
}

TEST(LineGuides, AreFilledInOrderAndCut) {
    const ContrastGroups one = {{"", {{"", ""}, 2.5}}};
    const ContrastGroups two = {{"13", {{"1", "3"}, -1}}, {"2", {{"2", ""}, 100.25}}};
    const std::string first = Guide("-1", "facet1!=&quot;1&quot;||facet2!=&quot;3&quot;");
    const std::string second = Guide("100.25", "facet1!=&quot;2&quot;");
    const struct {
        std::string fXml;
        const ContrastGroups& fGroups;
        std::string fFilled;
    } cases[] = {
        {Guides(3), one, "<plot>" + Guide("2.5", "false") + "</plot>"},
        {Guides(2), two, "<plot>" + first + second + "</plot>"},
        {Guides(1), two, "<plot>" + first + "</plot>"},
        {Guides(4), {}, "<plot></plot>"},
        {"<plot/>", two, "<plot/>"},
        {"<lineGuide y=\"00\"/>", one, "<lineGuide y=\"2.5\"/>"},
        {"<lineGuide y=", one, "<lineGuide y=2.5"},
    };
    for (const auto& one_case : cases) {
        std::string xml = one_case.fXml;
        FillLineGuides(xml, one_case.fGroups);
        EXPECT_EQ(xml, one_case.fFilled) << one_case.fXml;
    }
}

}  // namespace
}  // namespace hierfit::test
