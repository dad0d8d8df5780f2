#include <optional>
#include <unordered_map>
#include <utility>

#include "host/data/Number.h"
#include "host/data/VariableSource.h"
#include "host/pmml/Dictionary.h"

namespace hierfit::pmml {

namespace {

/// How many values of a field are each number: "1" and "01" are the same.
std::unordered_map<double, int> CountNumbers(const Field& field) {
    std::unordered_map<double, int> counts;
    for (const Category& category : field.fvCategories) {
        if (const std::optional<double> number = data::ParseNumber(category.fValue)) ++counts[*number];
    }
    return counts;
}

bool IsShared(const std::unordered_map<double, int>& counts, double number) {
    const auto count = counts.find(number);
    return count != counts.end() && count->second > 1;
}

// Charts hold a text that is a number as that number, and ask for its label by it, which must be no other text's.
KEST_ValueLabels MakeValueLabels(const Field& field) {
    const bool isString = field.fFormat.IsString();
    const std::unordered_map<double, int> counts = CountNumbers(field);
    KEST_ValueLabels labels;
    for (const auto& [value, label] : field.fvCategories) {
        if (label.empty()) continue;
        if (isString) labels.fOfTexts.emplace(value, label);
        const std::optional<double> number = data::ParseNumber(value);
        if (number && !(isString && IsShared(counts, *number))) labels.fOfNumbers.emplace(*number, label);
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
