#include "host/chart/view/Drawing.h"
#include "host/chart/view/histogram/Histogram.h"
#include "host/chart/view/histogram/HistogramLayers.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr double kWidth = 480;
constexpr double kHeight = 280;
constexpr double kRoomForAxis = 60;
constexpr TextStyle kTitleStyle{12.5, false};

Json AxisX(const Histogram& histogram) {
    return {{"title", WrapText(histogram.fLabel, kWidth, kTitleStyle, 3)},
            {"grid", false},
            {"tickCount", 6},
            {"labelFlush", true},
            {"labelOverlap", "parity"}};
}

Json AxisY(const Histogram& histogram) {
    return {{"title", WrapText(histogram.fCountLabel, kHeight, kTitleStyle, 3)}, {"grid", true}, {"tickCount", 5}};
}

}  // namespace

Drawing MakeHistogramDrawing(const ViewContext& context) {
    const Histogram histogram = ReadHistogram(context.fSpecification, context.fData, std::nullopt);
    Drawing drawing;
    drawing.fView = HistogramLayers(histogram, {0, kWidth, 0, kHeight, AxisX(histogram), AxisY(histogram)});
    drawing.fView["width"] = kWidth;
    drawing.fView["height"] = kHeight;
    drawing.fWidth = kWidth + kRoomForAxis;
    drawing.fShown = {HistogramSentence(histogram), {ShowBins(histogram)}};
    return drawing;
}

}  // namespace hierfit::chart
