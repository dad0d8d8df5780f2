#pragma once

#include <string>

#include "host/Export.h"
#include "host/document/Text.h"

namespace hierfit::document {

/// A number as the tables show it, in the C locale; "." for a number that is system-missing, NaN or infinite.
///
/// A zero never has a sign. A figure whose format would take more than 15 digits has scientific form; one that the
/// decimals of a coefficient or statistic would show as zero has 3 significant digits.
HIERFIT_EXPORT std::string FormatNumber(double number, const Format& format);

}  // namespace hierfit::document
