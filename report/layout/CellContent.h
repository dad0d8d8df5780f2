#pragma once

#include <optional>
#include <string>

#include "host/document/Text.h"

namespace hierfit::report {

/// Whether a text is a number to the reader, and so stands below others at the decimal sign: a figure, a missing one
/// included, or a number of the data that is shown as such and not by a value label.
bool IsNumber(const document::Text& text);

/// The number behind such a text, with all digits; nothing for other texts.
std::optional<double> FindNumber(const document::Text& text);

/// A number for programs: the fewest digits that give it back. A missing one is blank, others "NaN", "Inf" or "-Inf".
std::string SpellNumber(double number);

}  // namespace hierfit::report
