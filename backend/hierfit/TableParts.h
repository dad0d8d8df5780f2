#pragma once

#include <string>

#include "host/BpPivotTable.h"
#include "host/BpProcedure.h"

namespace hierfit {

/// A source text or key for the output to translate.
inline BpString Translated(const std::string& text) { return BpString(text, true); }

/// A text to print unchanged.
inline BpString Plain(const std::string& text) { return BpString(text, false); }

/// A figure in the shortest digits that give it back.
BpNumber SigDigitNumber(double number);

/// A figure in the count format.
BpNumber CountNumber(double number);

/// A pattern, translated, with one value.
BpComposite Composite(const std::string& pattern, const BpCellText& value);

/// A category with a translated name, and its one number.
BpCategory NumberCell(BpGroup& group, const char* name, double number, BpFormatSpec format);

}  // namespace hierfit
