#include "host/chart/view/network/TargetBox.h"

#include "host/chart/view/histogram/HistogramLayers.h"
#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr TextStyle kTitleStyle{12, true};
constexpr double kMargin = 12;
constexpr double kFirstLine = 18;  // from the upper edge to the first baseline
constexpr double kLine = 15;
constexpr double kBelowTitle = 11;
constexpr double kBars = 96;
constexpr double kBelowBars = 24;  // the axis with its labels
constexpr std::size_t kMostLines = 3;

Json BoxLayer(const TargetBox& box, const std::string& tip) {
    Json encoding = {
        {"x", PixelChannel("x")}, {"x2", {{"field", "x2"}}}, {"y", PixelChannel("y")}, {"y2", {{"field", "y2"}}}};
    AddTip(encoding);
    const Json value = {{"x", Rounded(box.fLeft)},
                        {"x2", Rounded(box.fRight)},
                        {"y", Rounded(box.fTop)},
                        {"y2", Rounded(box.fTop + box.Height())},
                        {"tip", tip}};
    return {{"data", {{"values", Json::array({value})}}},
            {"mark",
             {{"type", "rect"},
              {"fill", palette::kPaper},
              {"stroke", palette::kBoxEdge},
              {"strokeWidth", 1},
              {"cornerRadius", 4}}},
            {"encoding", std::move(encoding)}};
}

Json TitleLayer(const TargetBox& box, const std::string& tip) {
    Json encoding = {
        {"x", PixelChannel("x")}, {"y", PixelChannel("y")}, {"text", {{"field", "label"}, {"type", "nominal"}}}};
    AddPointerTip(encoding);
    Json values = Json::array();
    for (std::size_t line = 0; line < box.fvTitle.size(); ++line) {
        values.push_back(Row({{"x", Rounded(box.fLeft + kMargin)},
                              {"y", Rounded(box.fTop + kFirstLine + kLine * static_cast<double>(line))},
                              {"label", box.fvTitle[line]},
                              {"tip", tip}}));
    }
    return {{"data", {{"values", std::move(values)}}},
            {"mark",
             {{"type", "text"},
              {"align", "left"},
              {"baseline", "alphabetic"},
              {"fontWeight", 600},
              {"fontSize", kTitleStyle.fSize},
              {"aria", false}}},
            {"encoding", std::move(encoding)}};
}

Json AxisX(const TargetBox& box, double height) {
    return {{"title", nullptr},
            {"orient", "bottom"},
            {"grid", false},
            {"tickCount", box.fRight - box.fLeft > 170 ? 4 : 3},
            {"labelFontSize", 10},
            {"labelFlush", true},
            {"labelOverlap", "parity"},
            {"offset", Rounded(box.HistogramBottom() + 1 - height)},
            {"minExtent", 0},
            {"zindex", 1}};
}

}  // namespace

double TargetBox::HistogramTop() const {
    const double lines = static_cast<double>(fvTitle.size());
    return fTop + (fvTitle.empty() ? kMargin : kFirstLine + kLine * (lines - 1) + kBelowTitle);
}

double TargetBox::HistogramBottom() const { return HistogramTop() + (fHasHistogram ? kBars : 0); }

double TargetBox::Height() const { return HistogramBottom() - fTop + (fHasHistogram ? kBelowBars : 0); }

TargetBox MakeTargetBox(std::string_view name, bool hasHistogram, double left, double right) {
    TargetBox box;
    box.fLeft = left;
    box.fRight = right;
    box.fvTitle = WrapText(name, right - left - 2 * kMargin, kTitleStyle, kMostLines);
    box.fHasHistogram = hasHistogram;
    return box;
}

std::vector<Json> TargetBoxLayers(const TargetBox& box, const DiagramTarget& target, const Histogram& histogram,
                                  double height) {
    Json layers = Json::array();
    layers.push_back(BoxLayer(box, target.fTip));
    if (!box.fvTitle.empty()) layers.push_back(TitleLayer(box, target.fTip));
    std::vector<Json> views;
    views.push_back({{"layer", std::move(layers)}});
    if (!box.fHasHistogram) return views;
    views.push_back(HistogramLayers(histogram, {box.fLeft + kMargin, box.fRight - kMargin, box.HistogramTop(),
                                                box.HistogramBottom(), AxisX(box, height), nullptr}));
    return views;
}

}  // namespace hierfit::chart
