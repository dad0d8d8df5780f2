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

}  // namespace hierfit::chart
