#pragma once

#include "host/document/Document.h"

namespace hierfit::report::style {

/// How a report writes its figures.
enum class Style : unsigned char {
    Plain,  ///< every figure in its print format, and every p value by the rule of significances
};

/// Writes a document's figures anew in a style: the words of its texts change, their sources stay. A minus becomes
/// U+2212, and what stands between two compared levels an en dash. It is for readers: a document that is saved keeps
/// its own words.
void Apply(Style style, document::Document& document);

}  // namespace hierfit::report::style
