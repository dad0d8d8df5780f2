#pragma once

#include <string>
#include <vector>

namespace hierfit {

/// One message of the back-end. The pattern, a key such as "kGLMM_C26", is its identity.
struct WarningMessage {
    std::string fPattern;
    std::vector<std::string> fWarningParameters;
};

}  // namespace hierfit
