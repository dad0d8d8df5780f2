#include "host/chart/view/histogram/HistogramLayers.h"

#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/Palette.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostDots = 80;
constexpr double kNarrowestOutlined = 5;  // pixels: outlines would be most of narrower bars

Json BarValues(const Histogram& histogram) {
    Json values = Json::array();
    const std::string name = CutName(histogram.fLabel);
    const std::string countName = CutName(histogram.fCountLabel);
    for (const Bin& bin : histogram.fBins.fvBins) {
        const std::string tip =
            name + ": " + histogram.RangeInWords(bin) + "\n" + countName + ": " + ShortNumber(bin.fCount);
        values.push_back(Row({{"lo", histogram.Place(bin.fLow)},
                              {"hi", histogram.Place(bin.fHigh)},
                              {"n", Rounded(bin.fCount)},
                              {"tip", tip}}));
    }
    return values;
}

Json CurveValues(const Histogram& histogram) {
    Json values = Json::array();
    for (const CurvePoint& point : histogram.fCurve.fvPoints)
        values.push_back(Row({{"x", histogram.Place(point.fX)}, {"y", Rounded(point.fY)}}));
    return values;
}

Json ChannelX(std::string_view field, const Histogram& histogram, const HistogramPlace& place) {
    const Json scale = {{"domain", {histogram.Place(histogram.Low()), histogram.Place(histogram.High())}},
                        {"range", {place.fLeft, place.fRight}},
                        {"nice", false},
                        {"zero", false}};
    return {{"field", field}, {"type", "quantitative"}, {"scale", scale}, {"axis", place.fAxisX}};
}

Json ChannelY(std::string_view field, const Histogram& histogram, const HistogramPlace& place) {
    const Json scale = {
        {"domain", {0, Rounded(histogram.Top())}}, {"range", {place.fBottom, place.fTop}}, {"nice", false}};
    return {{"field", field}, {"type", "quantitative"}, {"scale", scale}, {"axis", place.fAxisY}};
}

Json BarLayer(const Histogram& histogram, const HistogramPlace& place) {
    const double room = kNarrowestOutlined * static_cast<double>(histogram.fBins.fvBins.size());
    const bool isOutlined = place.fRight - place.fLeft >= room;
    Json encoding = {{"x", ChannelX("lo", histogram, place)},
                     {"x2", {{"field", "hi"}}},
                     {"y", ChannelY("n", histogram, place)},
                     {"y2", {{"datum", 0}}}};
    AddTip(encoding);
    return {{"data", {{"values", BarValues(histogram)}}},
            {"mark",
             {{"type", "rect"},
              {"fill", palette::kBar},
              {"stroke", palette::kPaper},
              {"strokeWidth", isOutlined ? 0.8 : 0}}},
            {"encoding", std::move(encoding)}};
}

Json CurveLayer(const Histogram& histogram, const HistogramPlace& place) {
    const bool isOfCounts = histogram.fCurve.fIsOfCounts;
    Json mark = {{"type", "line"},     {"stroke", palette::kInk},
                 {"strokeWidth", 1.6}, {"interpolate", isOfCounts ? "linear" : "monotone"},
                 {"clip", true},       {"aria", false}};
    if (isOfCounts && histogram.fCurve.fvPoints.size() <= kMostDots) {
        mark["point"] = {{"size", 16}, {"fill", palette::kInk}, {"filled", true}, {"aria", false}};
    }
    return {{"data", {{"values", CurveValues(histogram)}}},
            {"mark", std::move(mark)},
            {"encoding", {{"x", ChannelX("x", histogram, place)}, {"y", ChannelY("y", histogram, place)}}}};
}

}  // namespace

Json HistogramLayers(const Histogram& histogram, const HistogramPlace& place) {
    Json layers = Json::array();
    layers.push_back(BarLayer(histogram, place));
    if (!histogram.fCurve.fvPoints.empty()) layers.push_back(CurveLayer(histogram, place));
    return {{"layer", std::move(layers)}};
}

}  // namespace hierfit::chart
