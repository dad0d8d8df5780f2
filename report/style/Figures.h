#pragma once

#include <string>

#include "host/document/Text.h"
#include "report/style/FigureKind.h"
#include "report/style/FigureStyle.h"

namespace hierfit::report::style {

/// A number in a style, in the C locale. Nothing that is not zero shows as zero, no zero has a sign, and a p value that
/// is not 0.05, 0.01 or 0.001 never shows on the other side of these, nor on them.
std::string WriteFigure(double number, const document::Format& format, FigureKind kind, const FigureStyle& style);

}  // namespace hierfit::report::style
