#pragma once

#include <string>

#include "host/document/Document.h"
#include "report/text/TextOptions.h"

namespace hierfit::report {

/// The document as text for a terminal, UTF-8.
std::string MakeTextReport(const document::Document& document, const TextOptions& options);

}  // namespace hierfit::report
