#pragma once

#include "report/charts/layout/PanelGrid.h"
#include "report/charts/layout/levels/LevelsAxis.h"

namespace hierfit::report::charts {

/// How large everything is in a picture of levels. The grid's panels are not placed yet.
struct LevelsPlan {
    LevelsAxis fAxis;
    NumberAxis fValues;  ///< on the left, or below levels that stand below each other
    PanelGrid fGrid;
    PanelRooms fRooms;
    double fPlotWidth = 0;
    double fPlotHeight = 0;
};

/// Plans a picture for a width. The plan borrows the picture's panels. Contrasts of many levels may be wider.
LevelsPlan PlanLevels(const document::LevelsPicture& picture, double width);

}  // namespace hierfit::report::charts
