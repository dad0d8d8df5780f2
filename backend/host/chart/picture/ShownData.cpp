#include "host/chart/picture/ShownData.h"

#include <algorithm>
#include <unordered_map>

namespace hierfit::chart {

ShownData::ShownData(const Specification& specification, const std::vector<document::ChartSource>& data,
                     const std::vector<VariableSetting>& settings)
    : fpSpecification(&specification) {
    std::unordered_map<std::string_view, int> counts;
    for (const document::ChartSource& source : data) {
        for (const document::ChartVariable& variable : source.fvVariables) {
            const int index = counts[variable.fName]++;
            fvEntries.push_back({source.fName, variable.fName,
                                 ShownVariable(variable, FieldOf(source.fName, variable.fName),
                                               SettingOf(settings, variable.fName, index))});
        }
    }
}

const Field* ShownData::FieldOf(std::string_view source, std::string_view name) const {
    for (const Field& field : fpSpecification->fvFields) {
        if (field.fName == name && (field.fSource.empty() || field.fSource == source)) return &field;
    }
    return nullptr;
}

const VariableSetting* ShownData::SettingOf(const std::vector<VariableSetting>& settings, std::string_view name,
                                            int index) {
    for (const VariableSetting& setting : settings) {
        if (setting.fName == name && setting.fIndex == index) return &setting;
    }
    return nullptr;
}

const ShownVariable* ShownData::FindNamed(std::string_view source, std::string_view name) const {
    for (const Entry& entry : fvEntries) {
        if (entry.fName == name && (source.empty() || entry.fSource == source)) return &entry.fVariable;
    }
    return nullptr;
}

const ShownVariable* ShownData::FindAny(std::string_view source, std::string_view reference) const {
    if (reference.empty()) return nullptr;
    for (const Field& field : fpSpecification->fvFields) {
        const bool isSourceMeant = source.empty() || field.fSource.empty() || field.fSource == source;
        if (field.fSlot == reference && isSourceMeant) {
            return FindNamed(field.fSource.empty() ? source : field.fSource, field.fName);
        }
    }
    return FindNamed(source, reference);
}

bool ShownData::Lacks(std::string_view source, std::string_view reference) const {
    const auto isOfSource = [&](const Entry& entry) { return source.empty() || entry.fSource == source; };
    return std::ranges::any_of(fvEntries, isOfSource) && FindAny(source, reference) == nullptr;
}

const ShownVariable* ShownData::Find(std::string_view source, std::string_view reference) const {
    const ShownVariable* variable = FindAny(source, reference);
    return variable != nullptr && variable->IsWritten() ? variable : nullptr;
}

std::string ShownData::LabelOf(std::string_view source, std::string_view reference) const {
    const ShownVariable* variable = FindAny(source, reference);
    return variable == nullptr ? std::string() : variable->Label();
}

}  // namespace hierfit::chart
