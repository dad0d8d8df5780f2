#pragma once

#include <string_view>

#include "host/chart/view/levels/LevelsLayers.h"

namespace hierfit::chart {

/// A layer over one field of values.
Json ValueLayer(const LevelsStyle& style, Json mark, std::string_view field);

/// From one field of values to another.
Json RangeLayer(const LevelsStyle& style, Json mark, std::string_view from, std::string_view to);

/// Lines from "lo" to "hi" with caps at both ends; nothing where there are no ranges.
std::vector<Json> CappedRanges(const LevelsStyle& style, double capSize, double strokeWidth);

/// The channel of colours, shapes or other looks of the levels in field "b".
Json ColorChannel(const LevelsStyle& style, const std::vector<std::string>& looks);

}  // namespace hierfit::chart
