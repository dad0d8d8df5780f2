#pragma once

#include <optional>
#include <vector>

#include "host/chart/view/levels/LevelsMarks.h"
#include "host/chart/view/parts/Levels.h"
#include "host/chart/view/parts/Panels.h"

namespace hierfit::chart {

/// One mean of a chart of levels.
struct LevelsItem {
    struct Range {
        double fLow;
        double fHigh;
    };
    std::optional<std::size_t> fTipRow;  ///< of the data, where it tells a tip
    Panels::Place fPlace;
    std::size_t fX = 0;      ///< level along the axis
    double fNumber = 0;      ///< its value, where the axis is one of numbers
    std::size_t fColor = 0;  ///< level of the colour
    double fMean = 0;
    std::optional<double> fBase;  ///< what a contrast compares the mean with
    std::optional<Range> fRange;
    bool fIsSetOff = false;
};

/// The means of a chart of levels with all their levels, in the order of the data. What lacks a mean, a level or a
/// panel is not among them. It borrows the context.
struct LevelsItems {
    LevelsItems(const ViewContext& context, const LevelsMarks& marks);

    Panels fPanels;
    Levels fX;
    Levels fColors;
    bool fIsLinear = false;  ///< the axis is one of numbers, and has two at least
    std::vector<LevelsItem> fvItems;
};

}  // namespace hierfit::chart
