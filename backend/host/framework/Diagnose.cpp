#include "host/Diagnose.h"

#include <new>
#include <optional>

#include "host/context/RunContext.h"

namespace hierfit {

void Diagnose(const std::string& text) {
    auto* run = context::RunContext::CurrentOrNull();
    if (run && run->TakeRoomForWarning()) run->AddDiagnostic(2, text, std::nullopt);
}

void NoteDropped() noexcept {
    auto* run = context::RunContext::CurrentOrNull();
    try {
        throw;
    } catch (const std::bad_alloc&) {
        if (run) run->fIsMemoryShort = true;
    } catch (...) {  // nothing to note
    }
}

}  // namespace hierfit
