#include "host/data/VariableSource.h"

#include <utility>

#include "host/context/RunContext.h"

namespace hierfit::data {

VariableSource::VariableSource(std::vector<KEST_VariableDefinition> definitions) {
    fvVariables.reserve(definitions.size());
    for (KEST_VariableDefinition& definition : definitions) {
        fIndices.emplace(definition.fName, static_cast<int>(fvVariables.size()));
        fvVariables.push_back(std::make_unique<KEST_Variable>(std::move(definition)));
    }
}

int VariableSource::FindVarIndex(const std::string& name, int) const {
    const auto found = fIndices.find(name);
    if (found != fIndices.end()) return found->second;
    if (auto* run = context::RunContext::CurrentOrNull()) {
        run->SetMiss(context::Miss::Kind::Field, name, {}, run->GetTouchedNode());
    }
    return -1;
}

KEST_Variable* VariableSource::GetVariable(int index) const {
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < fvVariables.size();
    return exists ? fvVariables[static_cast<std::size_t>(index)].get() : nullptr;
}

}  // namespace hierfit::data
