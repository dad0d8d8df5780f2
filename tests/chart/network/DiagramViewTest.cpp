#include <nlohmann/json.hpp>

#include <cmath>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using Json = nlohmann::json;

const Curve kNormal{"normal", {}, {}};

Json ViewOf(const Sample& sample) { return Json::parse(sample.Make().fJson); }

/// The pixel of a value on the scale of a channel along x.
double Pixel(const Json& channel, double value) {
    const Json& domain = channel["scale"]["domain"];
    const Json& range = channel["scale"]["range"];
    const double share = (value - domain[0].get<double>()) / (domain[1].get<double>() - domain[0].get<double>());
    return range[0].get<double>() + share * (range[1].get<double>() - range[0].get<double>());
}

TEST(DiagramViewTest, EndsLinesAtTheEdgeOfTheBox) {
    for (const int nodes : {1, 2, 9, 40, 500}) {
        SCOPED_TRACE(nodes);
        const Json view = ViewOf(DiagramSample("", nodes, true));
        const Json& links = view["layer"][0]["layer"][0];
        const Json& box = view["layer"][1]["layer"][0]["data"]["values"][0];
        EXPECT_EQ(links["data"]["values"].size(), static_cast<std::size_t>(nodes));
        EXPECT_NEAR(Pixel(links["encoding"]["x"], nodes), box["x"].get<double>(), 0.01);
        EXPECT_GE(box["x2"].get<double>() - box["x"].get<double>(), 140);
        EXPECT_LE(box["y2"].get<double>(), view["height"].get<double>());
    }
}

TEST(DiagramViewTest, StartsFarEnoughRightForNames) {
    Sample sample = DiagramSample("", 9, true);
    for (auto& name : VariableOf(sample, "pointSource", "Nodes").fvValues) name = std::string(200, 'M');
    const Json names = ViewOf(sample)["layer"][0]["layer"][2];
    for (const Json& name : names["data"]["values"]) {
        EXPECT_GE(Pixel(names["encoding"]["x"], name["x"]), 230 + 11);
        const std::string label = name["label"];
        EXPECT_EQ(label.substr(label.size() - 3), "…");
    }
}

TEST(DiagramViewTest, ShowsTheBoxAloneWithoutNodes) {
    Sample sample = DiagramSample("", 0, false);
    AddInset(sample, kNormal);
    const Json view = ViewOf(sample);
    EXPECT_EQ(view["layer"].size(), 2U);
    EXPECT_EQ(view["layer"][0]["layer"][1]["data"]["values"][0]["label"], "Average reaction time (ms)");
    EXPECT_FALSE(view.contains("params"));
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows.size(), 8U);
}

TEST(DiagramViewTest, ShowsAtMostSixWeightsBetweenTheLimits) {
    struct Case {
        double fLow;
        double fHigh;
        Json fValues;
    };
    const std::vector<Case> cases = {
        {1, 9, {1, 2, 4, 5, 7, 9}}, {4, 9, {4, 5, 6, 7, 8, 9}}, {9, 9, Json::array({9})}, {8, 3, Json::array()}};
    for (const Case& each : cases) {
        Sample sample = DiagramSample("", 3, false);
        sample.fSpecification.fvLegends[0].fLow = each.fLow;
        sample.fSpecification.fvLegends[0].fHigh = each.fHigh;
        const Json legend = ViewOf(sample)["layer"][0]["layer"][0]["encoding"]["strokeWidth"]["legend"];
        EXPECT_EQ(legend.is_null() ? Json::array() : legend["values"], each.fValues);
    }
}

TEST(DiagramViewTest, DashesNegativeLines) {
    Sample sample = DiagramSample("", 2, true);
    VariableOf(sample, "edgeSource", "Weight2").fvValues = {"Negative", "Positive"};
    const Json encoding = ViewOf(sample)["layer"][0]["layer"][0]["encoding"];
    EXPECT_EQ(encoding["strokeDash"]["scale"]["range"], Json({{1, 0}, {7, 3}}));
    EXPECT_EQ(encoding["stroke"]["scale"]["range"], Json({"#0072b2", "#d55e00"}));
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows[0][3], "Negative");
    const Json plain = ViewOf(DiagramSample("", 2, false))["layer"][0]["layer"][0];
    EXPECT_EQ(plain["mark"]["stroke"], "#7f93a8");
    EXPECT_FALSE(plain["encoding"].contains("stroke"));
}

TEST(DiagramViewTest, LeavesOutWhatHasNoPlace) {
    Sample sample = DiagramSample("", 4, true);
    VariableOf(sample, "pointSource", "X").fvValues[0] = std::nan("");
    VariableOf(sample, "edgeSource", "ToY").fvValues[1] = document::ChartValue();
    VariableOf(sample, "edgeSource", "Weight").fvValues[2] = document::ChartValue();
    const Json layers = ViewOf(sample)["layer"][0]["layer"];
    EXPECT_EQ(layers[1]["data"]["values"].size(), 3U);
    ASSERT_EQ(layers[0]["data"]["values"].size(), 3U);
    EXPECT_EQ(layers[0]["data"]["values"][2]["w"], 1) << "a line without a weight is the thinnest";
}

TEST(DiagramViewTest, TellsNodesAndBelowThemBins) {
    using Row = std::vector<std::string>;
    Sample sample = DiagramSample("", 3, true);
    EXPECT_EQ(sample.Make().fShown.fvTables.size(), 1U);
    AddInset(sample, kNormal);
    const std::vector<document::ChartTable> tables = sample.Make().fShown.fvTables;
    ASSERT_EQ(tables.size(), 2U);
    EXPECT_EQ(tables[0].fvColumns, (Row{"Node", "Type", "Significance", "Coefficient Estimate"}));
    EXPECT_EQ(tables[0].fKeys, 1);
    ASSERT_EQ(tables[0].fvRows.size(), 3U);
    EXPECT_EQ(tables[0].fvRows[2], (Row{"factor=2", "Ordinal", "< 0.0001", "Negative"}));
    EXPECT_EQ(tables[1].fvColumns, (Row{"Average reaction time (ms)", "E60352"}));
    EXPECT_EQ(tables[1].fKeys, 1);
    ASSERT_EQ(tables[1].fvRows.size(), 8U);
    EXPECT_EQ(tables[1].fvRows[0], (Row{"150 to 200", "2"}));
}

TEST(DiagramViewTest, TellsBinsAloneWithoutNodes) {
    Sample sample = DiagramSample("", 2, true);
    for (auto& value : VariableOf(sample, "pointSource", "X").fvValues) value = std::nan("");
    EXPECT_TRUE(sample.Make().fShown.fvTables.empty());
    AddInset(sample, kNormal);
    const std::vector<document::ChartTable> tables = sample.Make().fShown.fvTables;
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].fvRows[0].front(), "150 to 200");
}

TEST(DiagramViewTest, SurvivesEqualAndEndlessNumbers) {
    for (const double number : {0.0, 1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        Sample sample = DiagramSample("", 9, true);
        for (auto& source : sample.fvData) {
            for (auto& variable : source.fvVariables) {
                for (auto& value : variable.fvValues) {
                    if (std::holds_alternative<double>(value)) value = number;
                }
            }
        }
        const std::string view = sample.Make().fJson;
        for (const char* hole : {"[null", ",null", "\"x\":null", "\"y\":null", "\"w\":null", "\"height\":null"}) {
            EXPECT_EQ(view.find(hole), std::string::npos) << hole << " for " << number;
        }
    }
}

}  // namespace

}  // namespace hierfit::chart
