#pragma once

#include <string>

#include "host/chart/view/levels/LevelsItems.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// What one mean is called when it is pointed at; several lines.
std::string LevelsTip(const LevelsMarks& marks, const LevelsItems& items, const LevelsItem& item);

/// The chart in a sentence, and its means as a table.
document::ChartShown ShowLevels(const LevelsMarks& marks, const LevelsItems& items);

}  // namespace hierfit::chart
