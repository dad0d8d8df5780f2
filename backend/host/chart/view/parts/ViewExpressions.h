#pragma once

#include "host/document/ViewExpressions.h"

namespace hierfit::chart {

/// The expressions that views may hold; the list is the document's, since readers of documents check views against it.
namespace expression = document::expression;

}  // namespace hierfit::chart
