#pragma once

#include "tests/chart/view/Sample.h"

namespace hierfit::chart {

/// Bars over the values given, with a curve of the distribution.
Specification HistogramSpecification(Curve curve);
std::vector<document::ChartSource> HistogramData(const std::vector<document::ChartValue>& centers,
                                                 const std::vector<document::ChartValue>& counts);

/// A diagram of so many nodes on half an ellipse about the target, without a histogram. Signs alternate when asked for.
Sample DiagramSample(std::string name, int nodes, bool hasSigns);

/// Puts a histogram of a real target of eight bins into a diagram.
void AddInset(Sample& sample, Curve curve);

/// A graph of all pairs of so many levels in each panel. Every third pair is significant.
Sample PairwiseSample(std::string name, int levels, const std::vector<std::vector<document::ChartValue>>& facets);

/// Points along the diagonal, every one with a frequency.
Sample ScatterSample(std::string name, int points);

/// The variable of a sample's data.
document::ChartVariable& VariableOf(Sample& sample, const std::string& source, const std::string& name);

/// All kinds of node-and-edge charts, scatter plots and histograms, usual and unusual.
std::vector<Sample> NetworkSamples();

}  // namespace hierfit::chart
