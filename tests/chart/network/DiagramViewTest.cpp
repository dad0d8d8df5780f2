#include <cmath>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using Json = nlohmann::json;

/// The pixel of a value on the scale of a channel along x.
double Pixel(const Json& channel, double value) {
    const std::vector<double> domain = channel["scale"]["domain"];
    const std::vector<double> range = channel["scale"]["range"];
    return range[0] + (value - domain[0]) / (domain[1] - domain[0]) * (range[1] - range[0]);
}

TEST(DiagramViewTest, EndsLinesAtTheEdgeOfTheBox) {
    for (const int nodes : {1, 2, 9, 40, 500, 1000}) {
        SCOPED_TRACE(nodes);
        const Json view = DiagramSample("", nodes, true).MakeJson();
        const Json& links = view["layer"][0]["layer"][0];
        const Json& box = view["layer"][1]["layer"][0]["data"]["values"][0];
        EXPECT_EQ(links["data"]["values"].size(), static_cast<std::size_t>(nodes));
        EXPECT_NEAR(Pixel(links["encoding"]["x"], nodes), box["x"].get<double>(), 0.01);
        EXPECT_GE(box["x2"].get<double>() - box["x"].get<double>(), 140);
        EXPECT_LE(box["y2"].get<double>(), view["height"].get<double>());
        EXPECT_LE(view["height"].get<double>(), 16000);
    }
}

TEST(DiagramViewTest, StartsFarEnoughRightForNames) {
    Sample sample = DiagramSample("", 9, true);
    for (auto& name : ValuesOf(sample, "pointSource", "Nodes")) name = std::string(200, 'M');
    const Json names = sample.MakeJson()["layer"][0]["layer"][2];
    for (const Json& name : names["data"]["values"]) {
        EXPECT_GE(Pixel(names["encoding"]["x"], name["x"]), 230 + 11);
        EXPECT_TRUE(name["label"].get<std::string>().ends_with("…"));
    }
}

TEST(DiagramViewTest, ShowsTheBoxAloneWithoutNodes) {
    for (const int nodes : {0, 2}) {
        Sample sample = DiagramSample("", nodes, true);
        if (nodes > 0) ValuesOf(sample, "pointSource", "X").assign(2, std::nan(""));
        EXPECT_TRUE(sample.Make().fShown.fvTables.empty());
        AddInset(sample);
        const Json view = sample.MakeJson();
        EXPECT_EQ(view["layer"].size(), 2U);
        EXPECT_EQ(view["layer"][0]["layer"][1]["data"]["values"][0]["label"], "Average reaction time (ms)");
        EXPECT_FALSE(view.contains("params"));
        EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows.size(), 8U);
    }
}

TEST(DiagramViewTest, ShowsAtMostSixWeightsBetweenTheLimits) {
    const std::vector<std::tuple<double, double, Json>> cases = {
        {1, 9, {1, 2, 4, 5, 7, 9}}, {4, 9, {4, 5, 6, 7, 8, 9}}, {9, 9, Json::array({9})}, {8, 3, {}}};
    for (const auto& [low, high, values] : cases) {
        Sample sample = DiagramSample("", 3, false);
        sample.fSpecification.fvLegends[0].fLow = low;
        sample.fSpecification.fvLegends[0].fHigh = high;
        const Json legend = sample.MakeJson()["layer"][0]["layer"][0]["encoding"]["strokeWidth"]["legend"];
        EXPECT_EQ(legend.is_null() ? Json() : legend["values"], values);
    }
}

TEST(DiagramViewTest, LeavesOutWhatHasNoPlace) {
    Sample sample = DiagramSample("", 5, true);
    ValuesOf(sample, "pointSource", "X")[0] = std::nan("");
    ValuesOf(sample, "pointSource", "Y")[4] = {};
    ValuesOf(sample, "edgeSource", "ToY")[1] = {};
    ValuesOf(sample, "edgeSource", "Weight")[2] = {};
    const Json layers = sample.MakeJson()["layer"][0]["layer"];
    EXPECT_EQ(layers[1]["data"]["values"].size(), 3U);
    Json weights;
    for (const Json& link : layers[0]["data"]["values"]) weights.push_back(link["w"]);
    EXPECT_EQ(weights, Json({8, 4, 1, 1})) << "a line without a weight is the thinnest";
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows[1],
              (std::vector<std::string>{"factor=2", "Ordinal", "", "Negative"}));
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
