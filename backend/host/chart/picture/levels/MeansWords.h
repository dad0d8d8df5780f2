#pragma once

#include <string>
#include <vector>

#include "host/chart/picture/levels/Means.h"

namespace hierfit::chart {

/// What one mean is called when it is pointed at; several lines.
std::string MeanTip(const Means& means, const document::LevelMark& mark);

/// The chart in a sentence.
std::string MeansSentence(const Means& means);

/// A row for each mean.
document::ChartTable MeansTable(const Means& means);

/// What the bars or bands about the means are; empty where there are none.
std::string IntervalNote(const Means& means);

}  // namespace hierfit::chart
