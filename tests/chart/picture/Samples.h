#pragma once

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "host/chart/picture/MakePicture.h"
#include "host/chart/specification/ReadSpecification.h"

namespace hierfit::chart {

/// A chart made by hand, with all that its picture is made from.
struct Sample {
    Specification fSpecification;
    std::vector<document::ChartSource> fvData;
    std::vector<VariableSetting> fvSettings;

    document::Picture Make() const { return MakePicture(fSpecification, fvData, fvSettings).fPicture; }
};

/// What chart XML says that can be read.
inline Specification ReadChart(const std::string& xml) {
    return std::get<Reading>(ReadSpecification(xml)).fSpecification;
}

/// A source whose variables have no rows yet.
inline document::ChartSource SourceOf(const std::string& name, const std::vector<std::string>& variables) {
    document::ChartSource source{name, 0, {}};
    for (const std::string& variable : variables) source.fvVariables.push_back({variable, {}});
    return source;
}

/// Adds one value to each of the variables.
inline void AddRow(document::ChartSource& source, const std::vector<document::ChartValue>& values) {
    for (std::size_t at = 0; at < values.size(); ++at) source.fvVariables[at].fvValues.push_back(values[at]);
}

/// The values of a variable of a sample's data.
inline std::vector<document::ChartValue>& ValuesOf(Sample& sample, const std::string& source, const std::string& name) {
    for (document::ChartSource& each : sample.fvData) {
        for (document::ChartVariable& variable : each.fvVariables) {
            if (each.fName == source && variable.fName == name) return variable.fvValues;
        }
    }
    throw std::out_of_range(name);
}

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

/// Bars over the values given, with a curve of the distribution.
Sample HistogramSample(Curve curve, const std::vector<document::ChartValue>& centers,
                       const std::vector<document::ChartValue>& counts);

/// A diagram of so many nodes left of the target, without a histogram. Signs alternate when asked for.
Sample DiagramSample(int nodes, bool hasSigns);

/// Puts a histogram of a real target of eight bins, with a normal curve, into a diagram.
void AddInset(Sample& sample);

/// A graph of all pairs of so many levels in each panel. Every third pair is significant.
Sample PairwiseSample(int levels, const std::vector<std::vector<document::ChartValue>>& facets);

/// Points along the diagonal, every one with a frequency.
Sample ScatterSample(int points);

}  // namespace hierfit::chart
