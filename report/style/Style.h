#pragma once

#include "host/document/Document.h"
#include "report/style/FigureStyle.h"

namespace hierfit::report::style {

/// Writes a document's figures anew in a style. The words of its texts change, their sources stay. A minus becomes
/// U+2212, and what stands between two compared levels an en dash. It is for readers: a document that is saved keeps
/// its own words.
void Apply(document::Document& document, const FigureStyle& style);

}  // namespace hierfit::report::style
