#pragma once

#include "host/document/Document.h"

namespace hierfit::report::style {

/// Writes a document's figures anew in the plain style: each in its print format, and every p value by the rule of
/// significances. The words of its texts change, their sources stay. A minus becomes U+2212, and what stands between
/// two compared levels an en dash. It is for readers: a document that is saved keeps its own words.
void ApplyPlain(document::Document& document);

}  // namespace hierfit::report::style
