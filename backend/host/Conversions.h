#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Decimal text to number in the C locale. The whole text must be the number; blanks at either end are allowed. Any
/// other text gives the system-missing value.
HIERFIT_EXPORT double String2Double(const std::string& text);

/// Decimal text to integer; stops at the limits of int instead of wrapping round. A text that is no number gives 0.
HIERFIT_EXPORT int String2Integer(const std::string& text);

/// A Roman numeral (I, II, III, IV, ..., either case) to a number, 1 to 3999. Any other text gives 0.
HIERFIT_EXPORT int Roman2Integer(const std::string& text);

}  // namespace hierfit
