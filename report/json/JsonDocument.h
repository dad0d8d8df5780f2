#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "host/Export.h"
#include "host/document/Document.h"

namespace hierfit::report {

/// The document as JSON, without loss; docs/output-document.schema.json describes it. Every number is written with the
/// fewest digits that give the same double back; bytes that are no UTF-8 become U+FFFD.
HIERFIT_EXPORT std::string WriteJson(const document::Document& document);

/// Why a text is no such document. Line and column count from 1; 0 when the fault is not one of syntax.
struct JsonError {
    std::string fText;
    std::string fPath;  ///< where in the document, as a JSON pointer (RFC 6901)
    int fLine = 0;
    int fColumn = 0;
};

/// Reads back what `WriteJson` wrote; keys may stand in any order, and those that it does not know are skipped. Nesting
/// is limited to 100 levels and the lists of a document to 10 million elements together, so that a text cannot take
/// more memory than a small multiple of its size.
HIERFIT_EXPORT std::variant<document::Document, JsonError> ReadJson(std::string_view text);

}  // namespace hierfit::report
