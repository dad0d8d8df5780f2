#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "host/document/Document.h"

namespace hierfit::report {

/// The document as JSON, without loss; docs/output-document.schema.json describes it. Every number is written with the
/// fewest digits that give the same double back.
std::string WriteJson(const document::Document& document);

/// Why a text is no such document. Line and column count from 1; 0 when the fault is not one of syntax.
struct JsonError {
    std::string fText;
    std::string fPath;  ///< where in the document, as a JSON pointer (RFC 6901)
    int fLine = 0;
    int fColumn = 0;
};

/// Reads back what `WriteJson` wrote. Nesting is limited to 100 levels.
std::variant<document::Document, JsonError> ReadJson(std::string_view text);

}  // namespace hierfit::report
