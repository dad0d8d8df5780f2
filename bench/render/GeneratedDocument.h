#pragma once

#include "host/document/Document.h"

namespace bench {

/// A document of one table: ten columns of figures, rows in groups of ten, a note on every hundredth row.
hierfit::document::Document GenerateDocument(int cells);

}  // namespace bench
