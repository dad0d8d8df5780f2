#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Metadata of one field.
class HIERFIT_EXPORT CFField {
  public:
    virtual ~CFField() = default;

    /// Storage type: 0 string, 1 integer, 2 real.
    virtual int GetType() const = 0;
};

/// The field metadata. A field's index is that of the variable in the data source.
class HIERFIT_EXPORT CFMetaData {
  public:
    virtual ~CFMetaData() = default;

    virtual int FieldCount() const = 0;

    /// Index of the named field, -1 if there is none.
    virtual int GetFieldIndex(const std::string& name) const = 0;

    /// The field at an index; null for an index that does not exist.
    virtual CFField* GetField(int index) const = 0;
};

}  // namespace hierfit
