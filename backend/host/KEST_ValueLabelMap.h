#pragma once

#include <string>
#include <unordered_map>

#include "host/Export.h"
#include "host/OBS.h"

namespace hierfit {

/// The value labels of one variable: of a string variable by text and, where a text is a number, by that, too; of
/// others by number alone.
struct KEST_ValueLabels {
    std::unordered_map<double, std::string> fOfNumbers;
    std::unordered_map<std::string, std::string> fOfTexts;
};

/// Looks labels up among a variable's value labels. It is a view: the labels must outlive it.
class HIERFIT_EXPORT KEST_ValueLabelMap {
  public:
    explicit KEST_ValueLabelMap(const KEST_ValueLabels& labels) : fpLabels(&labels) {}

    /// The value's label, or null when it has none. Good as long as the labels live.
    const char* GetLabel(double value) const;
    const char* GetLabel(const std::string& value) const;
    const char* GetLabel(const OBS* value) const;

  private:
    const KEST_ValueLabels* fpLabels;
};

}  // namespace hierfit
