#include <cmath>

#include "tests/chart/picture/PictureFaults.h"

namespace hierfit::chart {

namespace {

using document::ScatterPicture;

TEST(ScatterPictureTest, HasEqualAxesThatHoldLimitsAndPoints) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<std::tuple<Span, int, double, double>> cases = {
        {{0.0, 0.0}, 0, -0.5, 0.5},    {{{}, {}}, 0, -0.5, 0.5},
        {{100.0, 400.0}, 1, 91, 409},  {{-infinity, infinity}, 1, 199.5, 200.5},
        {{250.0, 300.0}, 1, 197, 303},
    };
    for (const auto& [span, points, low, high] : cases) {
        Sample sample = ScatterSample(points);
        sample.fSpecification.fPlot.fX.fMin = span.fMin;
        sample.fSpecification.fPlot.fY.fMax = span.fMax;
        const auto picture = Draw<ScatterPicture>(sample);
        for (const document::PictureAxis& axis : {picture.fX, picture.fY}) {
            EXPECT_EQ(axis.fLow, low);
            EXPECT_EQ(axis.fHigh, high);
        }
    }
}

TEST(ScatterPictureTest, LeavesOutPointsWithoutAPlaceAndPutsFrequentOnesOnTop) {
    Sample sample = ScatterSample(5);
    ValuesOf(sample, "source0", "X")[0] = {};
    ValuesOf(sample, "source0", "Y") = {1.0, std::nan(""), 220.25, 230.0, 240.0};
    ValuesOf(sample, "source0", "Frequency") = {1.0, 1.0, 3.0, -2.0, document::ChartValue()};
    const std::vector<std::vector<std::string>> rows = {
        {"230.00", "230.00", "0"}, {"240.00", "240.00", "1"}, {"220.00", "220.25", "3"}};
    EXPECT_EQ(Make(sample).fvTables.at(0).fvRows, rows);
    EXPECT_EQ(Draw<ScatterPicture>(sample).fvPoints[2].fTip,
              "Average reaction time (ms): 220.00\nPredicted Value: 220.25\nFrequency: 3");
    sample.fSpecification.fvLegends[0].fHeading = Words{"Records", {}};
    EXPECT_EQ(Draw<ScatterPicture>(sample).fFrequencyTitle, "Records");
    ValuesOf(sample, "source0", "X").assign(5, document::ChartValue());
    EXPECT_FALSE(Draw<ScatterPicture>(sample).fHasLegend) << "there is nothing to explain";
}

}  // namespace

}  // namespace hierfit::chart
