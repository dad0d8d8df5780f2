#pragma once

#include "tests/chart/picture/Sample.h"

namespace hierfit::chart {

/// Bars over the values given, with a curve of the distribution.
Sample HistogramSample(Curve curve, const std::vector<document::ChartValue>& centers,
                       const std::vector<document::ChartValue>& counts);

/// A diagram of so many nodes on half an ellipse about the target, without a histogram. Signs alternate when asked for.
Sample DiagramSample(int nodes, bool hasSigns);

/// Puts a histogram of a real target of eight bins, with a normal curve, into a diagram.
void AddInset(Sample& sample);

/// A graph of all pairs of so many levels in each panel. Every third pair is significant.
Sample PairwiseSample(int levels, const std::vector<std::vector<document::ChartValue>>& facets);

/// Points along the diagonal, every one with a frequency.
Sample ScatterSample(int points);

}  // namespace hierfit::chart
