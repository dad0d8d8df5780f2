#include <optional>
#include <utility>

#include "host/data/Number.h"
#include "host/data/VariableSource.h"
#include "host/pmml/Dictionary.h"

namespace hierfit::pmml {

namespace {

KEST_ValueLabels MakeValueLabels(const Field& field) {
    KEST_ValueLabels labels;
    for (const auto& [value, label] : field.fvCategories) {
        if (label.empty()) continue;
        if (field.fFormat.IsString()) labels.fOfTexts.emplace(value, label);
        // Charts hold a text that is a number as that number, and ask for its label by it.
        if (const std::optional<double> number = data::ParseNumber(value)) labels.fOfNumbers.emplace(*number, label);
    }
    return labels;
}

KEST_VariableDefinition MakeDefinition(const Field& field) {
    KEST_VariableDefinition definition;
    definition.fName = field.fName;
    if (!field.fLabel.empty()) definition.fLabel = field.fLabel;
    definition.fFormat = field.fFormat;
    definition.fMeasurementLevel = field.fMeasurementLevel;
    definition.fValueLabels = MakeValueLabels(field);
    return definition;
}

}  // namespace

std::unique_ptr<ProcedureDataSource> MakeDataSource(const Dictionary& dictionary) {
    std::vector<KEST_VariableDefinition> definitions;
    definitions.reserve(dictionary.GetFields().size());
    for (const Field& field : dictionary.GetFields()) definitions.push_back(MakeDefinition(field));
    return std::make_unique<data::VariableSource>(std::move(definitions));
}

}  // namespace hierfit::pmml
