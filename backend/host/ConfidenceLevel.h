#pragma once

#include "host/Export.h"

namespace hierfit {

/// Tells the host the level of confidence of the intervals that the run's charts show, a fraction such as 0.95. It is
/// no part of the output; charts say it. What is no number between 0 and 1 is passed over.
HIERFIT_EXPORT void NoteConfidenceLevel(double fraction);

}  // namespace hierfit
