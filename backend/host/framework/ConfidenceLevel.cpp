#include "host/ConfidenceLevel.h"

#include "host/context/RunContext.h"

namespace hierfit {

void NoteConfidenceLevel(double fraction) {
    context::RunContext* run = context::RunContext::CurrentOrNull();
    if (run != nullptr && fraction > 0 && fraction < 1) run->SetConfidenceLevel(fraction);
}

}  // namespace hierfit
