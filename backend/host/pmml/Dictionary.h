#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "host/CFMetaData.h"
#include "host/KEST_DataSource.h"
#include "host/pmml/Field.h"

namespace hierfit::pmml {

/// Why a PMML document gives no fields. Line and column count from 1.
struct ReadError {
    std::string fText;
    int fLine = 1;
    int fColumn = 1;
};

/// The fields of a PMML document and which of them are variables of the model: those of the first mining schema in its
/// order, or all fields when there is none.
class Dictionary {
  public:
    static std::variant<Dictionary, ReadError> Read(const std::string& text);

    const std::vector<Field>& GetFields() const { return fvFields; }

    /// Index in `GetFields` of each variable of the model, in order.
    const std::vector<int>& GetVariables() const { return fvVariables; }

  private:
    std::vector<Field> fvFields;
    std::vector<int> fvVariables;
};

/// The data source and the field metadata that a dictionary describes; both have its fields, in its order.
std::unique_ptr<ProcedureDataSource> MakeDataSource(const Dictionary& dictionary);
std::unique_ptr<CFMetaData> MakeMetaData(const Dictionary& dictionary);

}  // namespace hierfit::pmml
