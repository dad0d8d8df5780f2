#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/ContrastGroup.h"
#include "hierfit/charts/NodeEdge.h"

namespace hierfit::test {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(ChartText, ParsesNumbersAtTheBeginOfATextAndTellsWhetherTheyAreAll) {
    const std::string zeros(400, '0');
    const std::tuple<std::string, double, bool> cases[] = {
        {"2.5", 2.5, true},
        {"-.5e1", -5, true},
        {" 3", 3, true},
        {"3 ", 3, false},
        {"1e400", kLargest, false},
        {"5e-324", 5e-324, true},
        {"0." + zeros + "1", 0, true},
        {"9" + zeros + "e-5", kLargest, false},
        {"0x10", 0, false},
    };
    for (const auto& [text, number, isAll] : cases) {
        bool isWhole = !isAll;
        EXPECT_EQ(ParseNumber(text, isWhole), number) << text;
        EXPECT_EQ(isWhole, isAll) << text;
    }
    for (const char* text : {"__MISSING__", "", "-", ".", "+-2", "inf", "nan"}) {
        bool isWhole = true;
        EXPECT_EQ(ParseNumber(text, isWhole), 0) << text;
        EXPECT_FALSE(isWhole) << text;
    }
}

TEST(ChartText, ReplacesWithTextsThatHoldTheMark) {
    std::string text = "^1 and ^1";
    EXPECT_EQ(ReplaceFirst(text, "^1", "a ^1"), 0U);
    EXPECT_EQ(text, "a ^1 and ^1");
    ReplaceAll(text, "^1", "^1^1");
    EXPECT_EQ(text, "a ^1^1 and ^1^1");
}

const char* const kBoth =
    "<faceting><variableReference name=\"a\"></variableReference><variableReference name=\"b\"></variableReference>"
    "</faceting><facetLayout><facetLevel depth=\"1\"></facetLevel><facetLevel depth=\"2\"></facetLevel></facetLayout>";

TEST(ChartText, CutsPanelsOutOfChartXml) {
    const std::tuple<void (*)(std::string&), std::string, const char*> cases[] = {
        {RemoveFacetingBlock, std::string("<p/>") + kBoth + "<q/>", "<p/><q/>"},
        {RemoveFacetingBlock, "</facetLayout><faceting>", "</facetLayout><faceting>"},
        {RemoveSecondFacet, kBoth,
         "<faceting><variableReference name=\"a\"></variableReference></faceting>"
         "<facetLayout><facetLevel depth=\"1\"></facetLevel></facetLayout>"},
        {RemoveSecondFacet, "<variableReference/><facetLevel 1></facetLevel><facetLevel 2></facetLevel>",
         "<variableReference/><facetLevel 1></facetLevel><facetLevel 2></facetLevel>"},
    };
    for (const auto& [cut, whole, left] : cases) {
        std::string xml = whole;
        cut(xml);
        EXPECT_EQ(xml, left) << whole;
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

std::string Guide(const std::string& y, const std::string& unless) {
    return "<lineGuide y=\"" + y + "\"><unless>" + unless + "</unless></lineGuide>";
}

TEST(LineGuides, AreFilledInOrderAndCut) {
    const ContrastGroups one = {{"", {{"", ""}, 2.5}}};
    const ContrastGroups two = {{"13", {{"1", "3"}, -1}}, {"2", {{"2", ""}, 100.25}}};
    const std::string first = Guide("-1", "facet1!=&quot;1&quot;||facet2!=&quot;3&quot;");
    const std::string second = Guide("100.25", "facet1!=&quot;2&quot;");
    const std::string empty = Guide("00", "whenText");
    const std::tuple<std::string, ContrastGroups, std::string> cases[] = {
        {"<plot>" + empty + empty + empty + "</plot>", one, "<plot>" + Guide("2.5", "false") + "</plot>"},
        {"<plot>" + empty + empty + "</plot>", two, "<plot>" + first + second + "</plot>"},
        {"<plot>" + empty + "</plot>", two, "<plot>" + first + "</plot>"},
        {"<plot/>", two, "<plot/>"},
        {"<lineGuide y=\"00\"/>", one, "<lineGuide y=\"2.5\"/>"},
        {"<lineGuide y=", one, "<lineGuide y=2.5"},
    };
    for (const auto& [guides, groups, filled] : cases) {
        std::string xml = guides;
        FillLineGuides(xml, groups);
        EXPECT_EQ(xml, filled) << guides;
    }
}

}  // namespace
}  // namespace hierfit::test
