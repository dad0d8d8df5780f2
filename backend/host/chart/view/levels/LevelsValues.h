#pragma once

#include <vector>

#include "host/chart/view/levels/LevelsAxis.h"
#include "host/chart/view/levels/LineGuides.h"

namespace hierfit::chart {

/// The data of the view: one object for each mean and each line.
Json LevelsValues(const LevelsMarks& marks, const LevelsItems& items, const LevelsAxis& axis,
                  const std::vector<PanelGuide>& guides);

}  // namespace hierfit::chart
