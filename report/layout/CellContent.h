#pragma once

#include "host/document/Text.h"

namespace hierfit::report {

/// Whether a text is a number to the reader, and so stands below others at the decimal sign: a figure, a missing one
/// included, or a number of the data that is shown as such and not by a value label.
bool IsNumber(const document::Text& text);

}  // namespace hierfit::report
