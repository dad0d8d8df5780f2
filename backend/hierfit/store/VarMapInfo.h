#pragma once

#include <vector>

namespace hierfit {

/// Maps between the fields of the data source and the variables of the model, with what the model knows of each
/// variable.
struct VarMapInfo {
    std::vector<int> fvFieldToVar;  ///< -1 for a field that the model does not use
    std::vector<int> fvVarToField;
    std::vector<bool> fvIsCategorical;
    std::vector<int> fvCategoryCount;  ///< 0 for variables that are not categorical

    /// The variable of a field, -1 when the model does not use the field or there is no such field.
    int VariableOf(int field) const {
        const auto i = static_cast<std::size_t>(field);
        return field >= 0 && i < fvFieldToVar.size() ? fvFieldToVar[i] : -1;
    }
};

}  // namespace hierfit
