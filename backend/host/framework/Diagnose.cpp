#include "host/Diagnose.h"

#include <optional>

#include "host/context/RunContext.h"

namespace hierfit {

void Diagnose(const std::string& text) {
    if (auto* run = context::RunContext::CurrentOrNull()) run->AddDiagnostic(2, text, std::nullopt);
}

}  // namespace hierfit
