#pragma once

#include "host/BpCellText.h"
#include "host/Export.h"

namespace hierfit {

/// Where a message is shown; the procedure passes one value alone.
enum class BpErrorShow { InOutput = 2 };

/// How grave a message is.
enum class BpErrorLevel { Information = 1, Warning = 2, Error = 3 };

/// Reports a message to the user, under the innermost heading that still has a handle.
HIERFIT_EXPORT void BpError(const BpCellText& text, BpErrorShow show, BpErrorLevel level);

}  // namespace hierfit
