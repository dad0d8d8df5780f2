#pragma once

#include <optional>
#include <string>

#include "host/Export.h"
#include "host/KEST_Variable.h"
#include "host/OBS.h"

namespace hierfit {

/// One data value, as the text that a document gives and, once loaded against a variable, as a value of that
/// variable's type. A copy holds both.
class HIERFIT_EXPORT CFStatVariableValue {
  public:
    CFStatVariableValue() = default;
    explicit CFStatVariableValue(std::string text);

    /// Stores a text; a value loaded before is forgotten.
    void SetStringValue(const std::string& text);

    /// Converts the stored text to a value of the variable's type. False, with no value held, when the variable is null
    /// or is numeric and the text is not one whole number in the C locale. The second argument is 0 at every call.
    bool LoadObsValue(const KEST_Variable* variable, int flags);

    /// `SetStringValue` and `LoadObsValue` in one step.
    bool SetCompleteValue(const std::string& text, const KEST_Variable* variable, int flags);

    /// The loaded value, owned by this object; null when none is loaded.
    const OBS* GetObsValue() const { return fValue ? &*fValue : nullptr; }

    const std::string& GetStringValue() const { return fText; }

  private:
    std::string fText;
    std::optional<OBS> fValue;
};

}  // namespace hierfit
