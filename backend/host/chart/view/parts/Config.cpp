#include "host/chart/view/parts/Config.h"

#include "host/chart/view/parts/Json.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/parts/ViewExpressions.h"

namespace hierfit::chart {

namespace {

constexpr double kTitleSize = 12.5;
constexpr double kLabelSize = 11.5;

Json TitleConfig() {
    return {{"anchor", "start"},
            {"frame", "bounds"},
            {"color", palette::kInk},
            {"fontSize", 15},
            {"fontWeight", 600},
            {"lineHeight", 19},
            {"offset", 14},
            {"subtitleColor", palette::kSoftInk},
            {"subtitleFontSize", 12},
            {"subtitlePadding", 5},
            {"subtitleLineHeight", 16}};
}

/// What the words of axes and legends have in common.
Json GuideConfig() {
    return {{"labelColor", palette::kInk},
            {"labelFontSize", kLabelSize},
            {"titleColor", palette::kInk},
            {"titleFontSize", kTitleSize},
            {"titleFontWeight", "normal"}};
}

Json AxisConfig() {
    Json axis = GuideConfig();
    axis.update({{"titlePadding", 9},
                 {"labelPadding", 5},
                 {"labelLimit", 220},
                 {"labelOverlap", false},
                 {"maxExtent", 400},
                 {"domainColor", palette::kAxis},
                 {"tickColor", palette::kAxis},
                 {"gridColor", palette::kGrid},
                 {"tickSize", 4}});
    return axis;
}

Json LegendConfig() {
    Json legend = GuideConfig();
    legend.update({{"labelLimit", 180},
                   {"titleLimit", 200},
                   {"titlePadding", 7},
                   {"symbolSize", 90},
                   {"symbolStrokeWidth", 2},
                   {"rowPadding", 4},
                   {"offset", 18},
                   {"layout", {{"expr", expression::kLegendLayout}}}});
    return legend;
}

Json HeaderConfig() {
    return {{"labelColor", palette::kInk}, {"labelFontSize", 12}, {"labelFontWeight", 600},
            {"labelPadding", 8},           {"labelLimit", 220},   {"titleColor", palette::kSoftInk},
            {"titleFontWeight", "normal"}};
}

Json Config() {
    return {{"font", "Helvetica, Arial, 'Liberation Sans', sans-serif"},
            {"background", "transparent"},
            {"padding", 6},
            {"title", TitleConfig()},
            {"axis", AxisConfig()},
            {"axisX", {{"grid", false}}},
            {"axisY", {{"domain", false}, {"ticks", false}, {"tickCount", 6}}},
            {"legend", LegendConfig()},
            {"header", HeaderConfig()},
            {"view", {{"stroke", nullptr}}},
            {"concat", {{"spacing", 16}}},
            {"facet", {{"spacing", 18}}},
            {"range", {{"category", LevelColors(8)}, {"symbol", LevelShapes(8)}}},
            {"text", {{"color", palette::kInk}, {"fontSize", kLabelSize}}},
            {"rule", {{"color", palette::kInk}}},
            {"point", {{"filled", true}, {"opacity", 1}}}};
}

}  // namespace

const std::string& ViewConfig() {
    static const std::string text = Config().dump();
    return text;
}

}  // namespace hierfit::chart
