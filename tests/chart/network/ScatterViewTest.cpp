#include <cmath>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using Json = nlohmann::json;

Json EncodingOf(const Sample& sample) { return sample.MakeJson()["layer"].back()["encoding"]; }

TEST(ScatterViewTest, HasEqualAxesThatHoldLimitsAndPoints) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<std::tuple<Span, int, Json>> cases = {
        {{0.0, 0.0}, 0, {-0.5, 0.5}},    {{{}, {}}, 0, {-0.5, 0.5}},
        {{100.0, 400.0}, 1, {91, 409}},  {{-infinity, infinity}, 1, {199.5, 200.5}},
        {{250.0, 300.0}, 1, {197, 303}},
    };
    for (const auto& [span, points, domain] : cases) {
        Sample sample = ScatterSample("", points);
        sample.fSpecification.fPlot.fX.fMin = span.fMin;
        sample.fSpecification.fPlot.fY.fMax = span.fMax;
        for (const char* axis : {"x", "y"}) EXPECT_EQ(EncodingOf(sample)[axis]["scale"]["domain"], domain);
    }
}

TEST(ScatterViewTest, NamesTheLegendByItsHeading) {
    Sample sample = ScatterSample("", 40);
    sample.fSpecification.fvLegends[0].fHeading = Words{"Records", {}};
    EXPECT_EQ(EncodingOf(sample)["opacity"]["title"], Json::array({"Records"}));
    ValuesOf(sample, "source0", "X").assign(40, document::ChartValue());
    EXPECT_TRUE(EncodingOf(sample)["opacity"]["legend"].is_null()) << "there is nothing to explain";
}

TEST(ScatterViewTest, LeavesOutPointsWithoutAPlaceAndPutsFrequentOnesOnTop) {
    Sample sample = ScatterSample("", 5);
    ValuesOf(sample, "source0", "X")[0] = {};
    ValuesOf(sample, "source0", "Y") = {1.0, std::nan(""), 220.25, 230.0, 240.0};
    ValuesOf(sample, "source0", "Frequency") = {1.0, 1.0, 3.0, -2.0, document::ChartValue()};
    const std::vector<std::vector<std::string>> rows = {
        {"230.00", "230.00", "0"}, {"240.00", "240.00", "1"}, {"220.00", "220.25", "3"}};
    EXPECT_EQ(sample.Make().fShown.fvTables.at(0).fvRows, rows);
}

}  // namespace

}  // namespace hierfit::chart
