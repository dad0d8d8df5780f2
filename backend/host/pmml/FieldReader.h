#pragma once

#include "host/pmml/Field.h"
#include "host/xml/Document.h"

namespace hierfit::pmml {

/// Reads a `DataField` element, but for its name. Without a known `dataType` a field holds texts; without a known
/// `optype` numbers are continuous and texts categorical. A format that is malformed or of the other type is ignored.
Field ReadField(const xml::Document& document, xml::Document::Node element);

}  // namespace hierfit::pmml
