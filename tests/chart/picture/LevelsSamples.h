#pragma once

#include "tests/chart/picture/Sample.h"

namespace hierfit::chart {

/// One mean: its levels in the order of the factors, and its figures. A value that is not written is a monostate.
struct SampleMean {
    std::vector<document::ChartValue> fvLevels;
    document::ChartValue fMean;
    document::ChartValue fLow;
    document::ChartValue fHigh;
};

/// A chart of means by the first factor, in colours by the second and in panels by the third.
Sample MeansSample(const std::vector<std::string>& factors, const std::vector<SampleMean>& means);

/// A chart of contrasts of the first factor's levels with a line at the height given, in panels by the others. Every
/// third contrast is significant.
Sample ContrastSample(const std::vector<std::string>& factors, const std::vector<SampleMean>& means, double base);

/// Means of all combinations of so many levels of each factor, about the middle given.
std::vector<SampleMean> CrossedMeans(const std::vector<std::vector<document::ChartValue>>& levels, double middle);

/// Levels named after a word: "District 1", "District 2", ...
std::vector<document::ChartValue> Named(const std::string& word, int count);

/// Marks the axis of the means as one of numbers.
void MakeLinear(Sample& sample);

}  // namespace hierfit::chart
