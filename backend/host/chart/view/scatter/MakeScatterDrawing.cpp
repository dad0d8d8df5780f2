#include <algorithm>
#include <cmath>

#include "host/chart/view/Drawing.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/scatter/ReadScatter.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr double kSquare = 420;
constexpr double kWidth = 560;
constexpr double kHeight = 360;
constexpr double kRoomForAxis = 70;
constexpr double kRoomForLegend = 90;
constexpr double kPalest = 0.3;
constexpr int kLegendSteps = 4;
constexpr int kTickCount = 6;
constexpr TextStyle kTitleStyle{12.5, false};

Json Channel(std::string_view field, const ScatterAxis& axis, double length) {
    const Json look = {{"grid", true},
                       {"tickCount", kTickCount},
                       {"labelOverlap", "parity"},
                       {"format", TickFormat(axis.fLow, axis.fHigh, kTickCount)}};
    return {{"field", field},
            {"type", "quantitative"},
            {"title", WrapText(axis.fTitle, length, kTitleStyle, 3)},
            {"scale", {{"domain", {axis.Place(axis.fLow), axis.Place(axis.fHigh)}}, {"nice", false}, {"zero", false}}},
            {"axis", look}};
}

/// A few frequencies from 1 to the most frequent, a whole and even step apart.
std::vector<double> LegendValues(double most) {
    const double step = std::max(1.0, std::ceil(most / kLegendSteps));
    std::vector<double> values;
    if (step > 1) values.push_back(1);
    for (int count = 1; count <= kLegendSteps && step * count <= most; ++count) values.push_back(step * count);
    return values;
}

Json OpacityChannel(const Specification& specification, const Scatter& scatter) {
    Json channel = {
        {"field", "f"},
        {"type", "quantitative"},
        {"title", scatter.fFrequencyTitle},
        {"scale", {{"domain", {0, std::max(2.0, scatter.fMostFrequent)}}, {"range", {kPalest, 1}}, {"nice", false}}},
        {"legend", nullptr}};
    const Legend* legend = FindLegend(specification, scatter.fReference);
    if (legend == nullptr || scatter.fvPoints.empty()) return channel;
    const std::vector<double> values = LegendValues(scatter.fMostFrequent);
    channel["title"] = WrapText(LegendTitleOr(*legend, scatter.fFrequencyTitle), 160, kTitleStyle, 3);
    channel["legend"] = {{"values", values},
                         {"tickCount", values.size() * 2},
                         {"symbolType", "circle"},
                         {"symbolFillColor", palette::kFirst},
                         {"symbolStrokeColor", nullptr},
                         {"symbolStrokeWidth", 0}};
    return channel;
}

/// The line on which both axes agree, as far as both reach.
Json DiagonalLayer(const Scatter& scatter, const Json& x, const Json& y) {
    const double low = std::max(scatter.fX.fLow, scatter.fY.fLow);
    const double high = std::min(scatter.fX.fHigh, scatter.fY.fHigh);
    Json values = Json::array();
    if (low < high) values.push_back(Row({{"a", scatter.fX.Place(low)}, {"b", scatter.fX.Place(high)}}));
    Json encoding = {{"x", x}, {"x2", {{"field", "b"}}}, {"y", y}, {"y2", {{"field", "b"}}}};
    encoding["x"]["field"] = "a";
    encoding["y"]["field"] = "a";
    return {{"data", {{"values", values}}},
            {"mark",
             {{"type", "rule"},
              {"stroke", palette::kSoftInk},
              {"strokeDash", {5, 4}},
              {"strokeWidth", 1.2},
              {"clip", true},
              {"aria", false}}},
            {"encoding", std::move(encoding)}};
}

std::string Tip(const Scatter& scatter, const ScatterPoint& point) {
    std::string tip = scatter.fX.fName + ": " + point.fXInWords + "\n" + scatter.fY.fName + ": " + point.fYInWords;
    if (!scatter.fReference.empty()) tip += "\n" + scatter.fFrequencyTitle + ": " + point.fFrequencyInWords;
    return tip;
}

Json PointLayer(const Specification& specification, const Scatter& scatter, const Json& x, const Json& y) {
    Json values = Json::array();
    for (const ScatterPoint& point : scatter.fvPoints) {
        values.push_back(Row({{"x", scatter.fX.Place(point.fX)},
                              {"y", scatter.fY.Place(point.fY)},
                              {"f", Rounded(point.fFrequency)},
                              {"tip", Tip(scatter, point)}}));
    }
    Json encoding = {{"x", x}, {"y", y}};
    if (!scatter.fReference.empty()) encoding["opacity"] = OpacityChannel(specification, scatter);
    AddTip(encoding);
    Json mark = {{"type", "point"}, {"shape", "circle"},        {"size", 72},
                 {"filled", true},  {"color", palette::kFirst}, {"strokeWidth", 0}};
    if (scatter.fReference.empty()) mark["opacity"] = 0.5;
    return {{"data", {{"values", std::move(values)}}}, {"mark", std::move(mark)}, {"encoding", std::move(encoding)}};
}

/// With the range of what stands upwards.
std::string Sentence(const Scatter& scatter) {
    if (scatter.fvPoints.empty()) return Translated("Chart: ^1. No values.", {scatter.fY.fTitle});
    const auto [least, greatest] =
        std::minmax_element(scatter.fvPoints.begin(), scatter.fvPoints.end(),
                            [](const ScatterPoint& a, const ScatterPoint& b) { return a.fY < b.fY; });
    return Translated("Scatter plot of ^1 by ^2. Points: ^3, from ^4 to ^5.",
                      {scatter.fY.fTitle, scatter.fX.fTitle, std::to_string(scatter.fvPoints.size()), least->fYInWords,
                       greatest->fYInWords});
}

/// Its rows are points, which have no names.
document::ChartTable ShowPoints(const Scatter& scatter) {
    document::ChartTable table;
    table.fvColumns = {TitleOr(scatter.fX.fTitle, Translated("Level")),
                       TitleOr(scatter.fY.fTitle, Translated("Estimated Mean"))};
    if (!scatter.fReference.empty()) table.fvColumns.push_back(TitleOr(scatter.fFrequencyTitle, Translated("E60352")));
    for (const ScatterPoint& point : scatter.fvPoints) {
        table.fvRows.push_back({point.fXInWords, point.fYInWords});
        if (!scatter.fReference.empty()) table.fvRows.back().push_back(point.fFrequencyInWords);
    }
    return table;
}

}  // namespace

Drawing MakeScatterDrawing(const ViewContext& context) {
    const Scatter scatter = ReadScatter(context);
    const Plot& plot = context.fSpecification.fPlot;
    const double width = plot.fSquare ? kSquare : kWidth;
    const double height = plot.fSquare ? kSquare : kHeight;
    const Json x = Channel("x", scatter.fX, width);
    const Json y = Channel("y", scatter.fY, height);
    Json layers = Json::array();
    if (plot.fHasDiagonal) layers.push_back(DiagonalLayer(scatter, x, y));
    layers.push_back(PointLayer(context.fSpecification, scatter, x, y));
    Drawing drawing;
    drawing.fView = {{"width", width}, {"height", height}, {"layer", std::move(layers)}};
    drawing.fWidth = width + kRoomForAxis + kRoomForLegend;
    drawing.fShown = {Sentence(scatter), {ShowPoints(scatter)}};
    return drawing;
}

}  // namespace hierfit::chart
