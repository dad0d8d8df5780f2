#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::report {

/// The document as one HTML page that needs nothing else, UTF-8.
std::string MakeHtmlReport(const document::Document& document);

}  // namespace hierfit::report
