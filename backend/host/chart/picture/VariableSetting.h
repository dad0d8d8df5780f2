#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/KEST_Format.h"
#include "host/KEST_Variable.h"

namespace hierfit::chart {

/// What the calls on one `XVariable` come to: the last call of a kind counts.
struct VariableSetting {
    std::string fName;
    int fIndex = 0;  ///< among the variables of that name over the sources
    std::optional<std::string> fLabel;
    std::optional<KEST_Format> fFormat;  ///< by setFormat or setFormatBasedOnKESTVariable
    const KEST_Variable* fpVariable = nullptr;
    std::optional<bool> fIsCategorical;
    std::string fPrefix;
    bool fUsesValueLabels = false;                              ///< addRelabels was called
    std::vector<std::pair<std::string, std::string>> fvLabels;  ///< value as text, label; by addRelabel, in order
};

}  // namespace hierfit::chart
