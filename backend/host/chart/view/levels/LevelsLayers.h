#pragma once

#include <string>

#include "host/chart/view/levels/LevelsAxis.h"
#include "host/chart/view/levels/LevelsMarks.h"
#include "host/chart/view/levels/ValueAxis.h"

namespace hierfit::chart {

/// What the layers of a chart of levels are drawn with.
struct LevelsStyle {
    bool fIsTurned = false;  ///< values run along x
    ValueAxis fValues;
    Json fLevels;       ///< the channel of the levels
    Json fColorLegend;  ///< of colours, where there are any; null to hide it
    std::size_t fColors = 0;
    bool fHasColors = false;
    bool fIsDense = false;   ///< marks are made smaller
    bool fHasRanges = true;  ///< layers without any values are left out
    bool fHasStems = true;
    bool fHasGuides = true;
};

/// The view of one panel, without size or data: means with capped ranges, joined where they are few series.
Json MeansLayers(const LevelsStyle& style);

/// The same over an axis of numbers: lines within bands.
Json LinearLayers(const LevelsStyle& style);

/// Means that stand up or down from a line; filled where significant.
Json ContrastLayers(const LevelsStyle& style);

}  // namespace hierfit::chart
