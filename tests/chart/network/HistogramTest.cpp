#include "host/chart/view/histogram/Histogram.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

#include "tests/chart/view/NetworkSamples.h"

namespace hierfit::chart {

namespace {

using document::ChartValue;

Histogram Read(const Curve& curve, const std::vector<ChartValue>& centers, const std::vector<ChartValue>& counts,
               std::optional<int> fieldType = {}) {
    const Specification specification = HistogramSpecification(curve);
    const auto sources = HistogramData(centers, counts);
    const std::vector<VariableSetting> none;
    return ReadHistogram(specification, ShownData(specification, sources, none), fieldType);
}

std::vector<std::vector<double>> Edges(const Histogram& histogram) {
    std::vector<std::vector<double>> edges;
    for (const Bin& bin : histogram.fBins.fvBins) edges.push_back({bin.fLow, bin.fHigh, bin.fCount});
    return edges;
}

const Curve kNormal{"normal", {}, {}};
const std::vector<ChartValue> kFive = {1.0, 2.0, 3.0, 4.0, 5.0};
const std::vector<ChartValue> kCounts = {1.0, 5.0, 9.0, 5.0, 1.0};

TEST(HistogramTest, PutsEdgesHalfWayBetweenBins) {
    using Rows = std::vector<std::vector<double>>;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Edges(Read(kNormal, {25.0, 75.0, 125.0}, {8.0, 9.0, 2.0})),
              (Rows{{0, 50, 8}, {50, 100, 9}, {100, 150, 2}}));
    EXPECT_EQ(Edges(Read(kNormal, {7.0}, {3.0})), (Rows{{6.5, 7.5, 3}}));
    EXPECT_EQ(Edges(Read(kNormal, {2.0, 1.0, 2.0}, {3.0, 4.0, 5.0})), (Rows{{0.5, 1.5, 4}, {1.5, 2.5, 8}}));
    EXPECT_EQ(Edges(Read(kNormal, {0.0, 1.0, 2.0, 90.0}, {1.0, 1.0, 1.0, 1.0})),
              (Rows{{-0.5, 0.5, 1}, {0.5, 1.5, 1}, {1.5, 2.5, 1}, {89.5, 90.5, 1}}));
    EXPECT_EQ(
        Edges(Read(kNormal, {infinity, "x", ChartValue(), 1.0, 2.0, 3.0}, {1.0, 1.0, 1.0, -2.0, std::nan(""), 6.0})),
        (Rows{{2.5, 3.5, 6}}));
    EXPECT_TRUE(Edges(Read(kNormal, {}, {})).empty());
}

TEST(HistogramTest, ExpectsAsManyAsWereCounted) {
    const Histogram normal = Read(kNormal, kFive, kCounts);
    ASSERT_EQ(normal.fCurve.fvPoints.size(), 121U);
    double area = 0;
    for (const CurvePoint& point : normal.fCurve.fvPoints) area += point.fY * 5 / 120;
    EXPECT_NEAR(area, 21, 0.5);
    EXPECT_NEAR(normal.fCurve.fvPoints[60].fX, 3, 1e-12);
    const Histogram poisson = Read({"poisson", 3.0, {}}, kFive, kCounts);
    ASSERT_EQ(poisson.fCurve.fvPoints.size(), 5U);
    EXPECT_NEAR(poisson.fCurve.fvPoints[1].fY, 21 * 4.5 * std::exp(-3), 1e-9);
}

TEST(HistogramTest, LeavesOutACurveThatWouldMislead) {
    struct Case {
        Curve fCurve;
        std::optional<int> fFieldType;
        std::size_t fBins;
        bool fHasCurve;
    };
    const std::vector<Case> cases = {
        {kNormal, 2, 5, true},
        {kNormal, {}, 5, true},
        {kNormal, 0, 5, false},
        {kNormal, 1, 5, false},
        {kNormal, 6, 5, false},
        {kNormal, 2, 2, false},
        {kNormal, 2, 0, false},
        {{"poisson", 3.0, {}}, 1, 5, true},
        {{"gamma", {}, 1.0}, 2, 5, false},
        {{"gamma", 2.0, 1.0}, 0, 3, true},
        {{"gamma", 2.0, 1.0}, 2, 2, false},
        {{"unknown", 2.0, 1.0}, 2, 5, false},
    };
    for (std::size_t at = 0; at < cases.size(); ++at) {
        const auto count = static_cast<std::ptrdiff_t>(cases[at].fBins);
        const Histogram histogram = Read(cases[at].fCurve, {kFive.begin(), kFive.begin() + count},
                                         {kCounts.begin(), kCounts.begin() + count}, cases[at].fFieldType);
        EXPECT_EQ(!histogram.fCurve.fvPoints.empty(), cases[at].fHasCurve) << "case " << at;
    }
}

TEST(HistogramTest, StaysSmallAndFiniteAtAnyScale) {
    const Histogram wide = Read({"poisson", 1e9, {}}, {0.0, 1e12, 2e12, 3e12}, {1.0, 1.0, 1.0, 1.0});
    EXPECT_LE(wide.fCurve.fvPoints.size(), 402U);
    const double last = 9007199254740992;  // the next whole number is no double
    const Histogram stuck = Read({"poisson", last, {}}, {last - 2, last - 1, last, last + 2}, {1.0, 1.0, 1.0, 1.0});
    EXPECT_LE(stuck.fCurve.fvPoints.size(), 401U);
    const Histogram huge = Read(kNormal, {-1e300, 0.0, 1e300}, {1e300, 1.0, 1e300});
    EXPECT_TRUE(std::isfinite(huge.High() - huge.Low()));
    const Histogram pole = Read({"gamma", 0.1, 1.0}, {0.05, 0.15, 0.25}, {9.0, 3.0, 1.0});
    EXPECT_LE(pole.Top(), 2.1 * 9);
    EXPECT_GT(Read(kNormal, kFive, {0.0, 0.0, 0.0, 0.0, 0.0}).Top(), 0);
    const Histogram far = Read(kNormal, {1e12, 1e12 + 1}, {1.0, 2.0});
    EXPECT_LT(far.Place(far.Low()), far.Place(far.fBins.fvBins[0].fHigh));
    EXPECT_LT(far.Place(far.fBins.fvBins[0].fHigh), far.Place(far.High()));
    for (const double lone : {0.0, 1e12, -1e300}) {
        const Histogram histogram = Read(kNormal, {lone}, {1234567.0});
        EXPECT_LT(histogram.Low(), histogram.fBins.Low()) << lone;
        EXPECT_LT(histogram.fBins.Low(), histogram.fBins.High()) << lone;
    }
}

TEST(HistogramTest, TellsWhatItShows) {
    const Specification specification = HistogramSpecification(kNormal);
    const View view = MakeView(specification, HistogramData({25.0, 75.0, 125.0}, {8.0, 9.0, 2.0}), {});
    EXPECT_EQ(view.fShown.fvTables.at(0).fvColumns.front(), "Average reaction time (ms)");
    EXPECT_EQ(view.fShown.fvTables.at(0).fvRows[1], (std::vector<std::string>{"50 to 100", "9"}));
    EXPECT_NE(view.fShown.fSentence.find("Bars: 3, from 0 to 150"), std::string::npos) << view.fShown.fSentence;
    const auto json = nlohmann::json::parse(view.fJson);
    EXPECT_EQ(json["layer"][1]["mark"]["aria"], false);
    EXPECT_EQ(json["layer"][0]["data"]["values"][1]["tip"], "Average reaction time (ms): 50 to 100\nE60352: 9");
}

}  // namespace

}  // namespace hierfit::chart
