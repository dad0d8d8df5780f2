#pragma once

#include <string>

#include "host/Export.h"
#include "host/document/Document.h"

namespace hierfit::document {

/// "model.statxml:41:7": document, line and column. "?" stands for a document that is not among the sources.
HIERFIT_EXPORT std::string SpellPlace(const Document& document, const Place& place);

/// " (model.statxml:41:7)", to stand behind a diagnostic's text; empty where no place is known.
HIERFIT_EXPORT std::string SpellPlaceBehind(const Document& document, const Diagnostic& diagnostic);

}  // namespace hierfit::document
