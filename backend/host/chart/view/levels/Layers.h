#pragma once

#include <string_view>

#include "host/chart/view/levels/LevelsLayers.h"

namespace hierfit::chart {

/// A layer over one field of values.
Json ValueLayer(const LevelsStyle& style, Json mark, std::string_view field);

/// A line from one field of values to another, and one cap at an end of it.
Json RangeLayer(const LevelsStyle& style, Json mark, std::string_view from, std::string_view to);
Json CapLayer(const LevelsStyle& style, std::string_view field, double size, double strokeWidth);

/// Lets the marks of a layer tell what they stand for.
void AddTips(Json& layer);

/// The channel of colours, shapes or other looks of the levels in field "b".
Json ColorChannel(const LevelsStyle& style, const std::vector<std::string>& looks);

}  // namespace hierfit::chart
