#include "host/Diagnose.h"

#include <optional>

#include "host/context/RunContext.h"

namespace hierfit {

void Diagnose(const std::string& text) {
    auto* run = context::RunContext::CurrentOrNull();
    if (run && run->TakeRoomForWarning()) run->AddDiagnostic(2, text, std::nullopt);
}

}  // namespace hierfit
