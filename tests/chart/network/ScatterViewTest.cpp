#include <nlohmann/json.hpp>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using Json = nlohmann::json;

Json ViewOf(const Sample& sample) { return Json::parse(sample.Make().fJson); }

Json DomainOf(const Sample& sample, const char* channel) {
    return ViewOf(sample)["layer"].back()["encoding"][channel]["scale"]["domain"];
}

TEST(ScatterViewTest, HasEqualAxesThatHoldLimitsAndPoints) {
    struct Case {
        Span fSpan;
        int fPoints;
        Json fDomain;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<Case> cases = {
        {{0.0, 0.0}, 0, {-0.5, 0.5}},    {{{}, {}}, 0, {-0.5, 0.5}},
        {{100.0, 400.0}, 1, {91, 409}},  {{-infinity, infinity}, 1, {199.5, 200.5}},
        {{250.0, 300.0}, 1, {197, 303}},
    };
    for (const Case& each : cases) {
        Sample sample = ScatterSample("", each.fPoints);
        sample.fSpecification.fPlot.fX = sample.fSpecification.fPlot.fY = each.fSpan;
        EXPECT_EQ(DomainOf(sample, "x"), each.fDomain);
        EXPECT_EQ(DomainOf(sample, "y"), each.fDomain);
    }
}

TEST(ScatterViewTest, ShowsTheLegendOnlyWhereItIsVisible) {
    Sample sample = ScatterSample("", 40);
    EXPECT_EQ(ViewOf(sample)["layer"][1]["encoding"]["opacity"]["legend"]["values"], Json({1, 5, 10, 15, 20}));
    sample.fSpecification.fvLegends[0].fIsVisible = false;
    EXPECT_TRUE(ViewOf(sample)["layer"][1]["encoding"]["opacity"]["legend"].is_null());
}

TEST(ScatterViewTest, LeavesOutPointsWithoutAPlace) {
    Sample sample = ScatterSample("", 4);
    VariableOf(sample, "source0", "X").fvValues[0] = document::ChartValue();
    VariableOf(sample, "source0", "Y").fvValues[1] = std::nan("");
    const View view = sample.Make();
    ASSERT_EQ(view.fShown.fvTables.at(0).fvRows.size(), 2U);
    EXPECT_EQ(view.fShown.fvTables.at(0).fvColumns,
              (std::vector<std::string>{"Average reaction time (ms)", "Predicted Value", "Frequency"}));
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows[0][0], "220.00");
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows[0][2], "3");
}

}  // namespace

}  // namespace hierfit::chart
