#include "host/chart/view/levels/Layers.h"
#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Palette.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostJoined = 8;

/// The colour of lines: by level, or the first one of the palette.
void ColorLine(const LevelsStyle& style, Json& layer) {
    if (style.fHasColors)
        layer["encoding"]["stroke"] = ColorChannel(style, LevelColors(style.fColors));
    else
        layer["mark"]["stroke"] = palette::kFirst;
}

/// Points of a level's colour and shape, with a rim that parts them.
Json MeanPoints(const LevelsStyle& style, double size) {
    Json layer = ValueLayer(style,
                            {{"type", "point"},
                             {"filled", true},
                             {"size", size},
                             {"opacity", 1},
                             {"stroke", palette::kPaper},
                             {"strokeWidth", 1.2}},
                            "m");
    if (style.fHasColors) {
        layer["encoding"]["fill"] = ColorChannel(style, LevelColors(style.fColors));
        layer["encoding"]["shape"] = ColorChannel(style, LevelShapes(style.fColors));
    } else {
        layer["mark"]["fill"] = palette::kFirst;
    }
    AddTip(layer["encoding"]);
    return layer;
}

Json JoiningLine(const LevelsStyle& style, double width, double opacity) {
    Json layer =
        ValueLayer(style, {{"type", "line"}, {"strokeWidth", width}, {"opacity", opacity}, {"aria", false}}, "m");
    if (style.fIsTurned) layer["encoding"]["order"] = {{"field", "at"}, {"type", "quantitative"}};
    ColorLine(style, layer);
    return layer;
}

Json Band(const LevelsStyle& style) {
    Json layer = RangeLayer(style, {{"type", "area"}, {"opacity", 0.16}, {"aria", false}}, "lo", "hi");
    if (style.fHasColors)
        layer["encoding"]["fill"] = ColorChannel(style, LevelColors(style.fColors));
    else
        layer["mark"]["fill"] = palette::kFirst;
    return layer;
}

Json OnLevels(const LevelsStyle& style, Json layers) {
    Json encoding = Json::object();
    encoding[style.fIsTurned ? "y" : "x"] = style.fLevels;
    return {{"encoding", std::move(encoding)}, {"layer", std::move(layers)}};
}

}  // namespace

Json MeansLayers(const LevelsStyle& style) {
    Json layers = Json::array();
    if (style.fHasColors && style.fColors <= kMostJoined) layers.push_back(JoiningLine(style, 1.2, 0.45));
    for (Json& layer : CappedRanges(style, style.fIsDense ? 30 : 56, 1.5)) {
        ColorLine(style, layer);
        layers.push_back(std::move(layer));
    }
    layers.push_back(MeanPoints(style, style.fIsDense ? 64 : 84));
    return OnLevels(style, std::move(layers));
}

Json LinearLayers(const LevelsStyle& style) {
    Json layers = Json::array();
    if (style.fHasRanges) layers.push_back(Band(style));
    layers.push_back(JoiningLine(style, 2, 1));
    layers.push_back(MeanPoints(style, style.fHasColors ? 56 : 40));
    return OnLevels(style, std::move(layers));
}

}  // namespace hierfit::chart
