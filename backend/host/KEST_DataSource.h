#pragma once

#include <string>

#include "host/Export.h"
#include "host/KEST_Variable.h"

namespace hierfit {

/// The active data source, as the procedure sees it: variables by name and by index, which counts from 0.
class HIERFIT_EXPORT KEST_DataSource {
  public:
    virtual ~KEST_DataSource() = default;

    /// Index of the named variable, case-sensitive; -1 if there is none. The second argument is 0 at every call.
    virtual int FindVarIndex(const std::string& name, int flags) const = 0;

    /// The variable at an index; null for an index that does not exist.
    virtual KEST_Variable* GetVariable(int index) const = 0;
};

/// The data source that the framework hands to a procedure.
class HIERFIT_EXPORT ProcedureDataSource : public KEST_DataSource {};

}  // namespace hierfit
