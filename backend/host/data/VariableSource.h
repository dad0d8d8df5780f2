#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/KEST_DataSource.h"

namespace hierfit::data {

/// The data source over a list of variables, which it owns. Of several variables of one name the first is found. A name
/// that is not found is remembered with the run, if there is one.
class VariableSource final : public ProcedureDataSource {
  public:
    explicit VariableSource(std::vector<KEST_VariableDefinition> definitions);

    int FindVarIndex(const std::string& name, int flags) const override;
    KEST_Variable* GetVariable(int index) const override;

  private:
    std::vector<std::unique_ptr<KEST_Variable>> fvVariables;
    std::unordered_map<std::string, int> fIndices;
};

}  // namespace hierfit::data
