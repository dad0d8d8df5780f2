#pragma once

#include <optional>
#include <string>

#include "host/Export.h"
#include "host/KEST_Format.h"
#include "host/KEST_ValueLabelMap.h"

namespace hierfit {

/// What a data-source variable is made from. Texts are UTF-8, which is the host's local code page.
struct KEST_VariableDefinition {
    std::string fName;
    std::optional<std::string> fLabel;
    KEST_Format fFormat;
    int fMeasurementLevel = 3;  ///< 1 categorical, 2 ordinal, 3 continuous
    KEST_ValueLabels fValueLabels;
};

/// One variable of the data source: its name, label, print format, measurement level and value labels. It owns all that
/// it answers; the pointers stay good as long as the data source lives.
class HIERFIT_EXPORT KEST_Variable {
  public:
    explicit KEST_Variable(KEST_VariableDefinition definition);

    const char* GetName() const { return fDefinition.fName.c_str(); }

    /// The variable label, or null when the variable has none.
    const char* GetLabel() const { return fDefinition.fLabel ? fDefinition.fLabel->c_str() : nullptr; }

    KEST_Format GetFormat() const { return fDefinition.fFormat; }

    /// 1 categorical, 2 ordinal, 3 continuous.
    int GetMeasurementLevel() const { return fDefinition.fMeasurementLevel; }

    const KEST_ValueLabels& GetValueLabels() const { return fDefinition.fValueLabels; }

    /// Whether its values are texts.
    bool IsString() const { return fDefinition.fFormat.IsString(); }

  private:
    KEST_VariableDefinition fDefinition;
};

}  // namespace hierfit
