#include "host/chart/view/levels/Layers.h"

namespace hierfit::chart {

namespace {

std::string_view ValueKey(const LevelsStyle& style) { return style.fIsTurned ? "x" : "y"; }

Json CapLayer(const LevelsStyle& style, std::string_view field, double size, double strokeWidth) {
    const Json mark = {{"type", "point"}, {"shape", "stroke"},          {"filled", false},
                       {"size", size},    {"strokeWidth", strokeWidth}, {"angle", style.fIsTurned ? 90 : 0},
                       {"aria", false}};
    return ValueLayer(style, mark, field);
}

}  // namespace

Json ValueLayer(const LevelsStyle& style, Json mark, std::string_view field) {
    Json layer = {{"mark", std::move(mark)}, {"encoding", Json::object()}};
    layer["encoding"][std::string(ValueKey(style))] = style.fValues.Channel(field);
    return layer;
}

Json RangeLayer(const LevelsStyle& style, Json mark, std::string_view from, std::string_view to) {
    Json layer = ValueLayer(style, std::move(mark), from);
    layer["encoding"][std::string(ValueKey(style)) + "2"] = {{"field", to}};
    return layer;
}

std::vector<Json> CappedRanges(const LevelsStyle& style, double capSize, double strokeWidth) {
    if (!style.fHasRanges) return {};
    return {RangeLayer(style, {{"type", "rule"}, {"strokeWidth", strokeWidth}, {"aria", false}}, "lo", "hi"),
            CapLayer(style, "lo", capSize, strokeWidth), CapLayer(style, "hi", capSize, strokeWidth)};
}

Json ColorChannel(const LevelsStyle& style, const std::vector<std::string>& looks) {
    std::vector<std::size_t> domain(looks.size());
    for (std::size_t level = 0; level < domain.size(); ++level) domain[level] = level;
    return {{"field", "b"},
            {"type", "nominal"},
            {"sort", nullptr},
            {"scale", {{"domain", domain}, {"range", looks}}},
            {"legend", style.fColorLegend}};
}

}  // namespace hierfit::chart
