#include "host/chart/view/levels/Layers.h"
#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/parts/ViewExpressions.h"

namespace hierfit::chart {

namespace {

/// What is set off comes first, in the legend too.
Json MarkChannel(const LevelsStyle& style, std::string_view setOff, std::string_view rest) {
    return {{"field", "s"},
            {"type", "nominal"},
            {"sort", nullptr},
            {"title", nullptr},
            {"scale", {{"domain", {1, 0}}, {"range", {setOff, rest}}}},
            {"legend", style.fColorLegend}};
}

Json GuideLayer(const LevelsStyle& style) {
    Json layer = ValueLayer(style, {{"type", "rule"}, {"stroke", palette::kInk}, {"strokeWidth", 1.2}}, "base");
    layer["transform"] = {{{"filter", expression::kHasBase}}};
    AddTip(layer["encoding"]);
    return layer;
}

Json StemLayer(const LevelsStyle& style) {
    const Json mark = {{"type", "rule"},
                       {"strokeWidth", style.fIsDense ? 3.5 : 5},
                       {"strokeCap", "butt"},
                       {"opacity", 0.35},
                       {"aria", false}};
    return RangeLayer(style, mark, "from", "m");
}

Json PointLayer(const LevelsStyle& style) {
    Json layer = ValueLayer(
        style,
        {{"type", "point"}, {"filled", true}, {"size", style.fIsDense ? 50 : 85}, {"strokeWidth", 1.8}, {"opacity", 1}},
        "m");
    layer["encoding"]["fill"] = MarkChannel(style, palette::kSetOff, palette::kPaper);
    AddTip(layer["encoding"]);
    return layer;
}

}  // namespace

Json ContrastLayers(const LevelsStyle& style) {
    Json marks = Json::array();
    if (style.fHasStems) marks.push_back(StemLayer(style));
    for (Json& layer : CappedRanges(style, style.fIsDense ? 50 : 90, 1.2)) marks.push_back(std::move(layer));
    marks.push_back(PointLayer(style));
    Json levels = {
        {"transform", {{{"filter", expression::kHasMean}}}},
        {"encoding", {{"x", style.fLevels}, {"stroke", MarkChannel(style, palette::kSetOff, palette::kQuiet)}}},
        {"layer", std::move(marks)}};
    Json layers = Json::array();
    if (style.fHasGuides) layers.push_back(GuideLayer(style));
    layers.push_back(std::move(levels));
    return {{"layer", std::move(layers)}};
}

}  // namespace hierfit::chart
