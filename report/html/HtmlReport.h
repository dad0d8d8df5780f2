#pragma once

#include <string>

#include "host/document/Document.h"
#include "report/html/HtmlSettings.h"

namespace hierfit::report {

/// The document as one HTML page that needs nothing else, UTF-8. All of it can be read without the script.
std::string MakeHtmlReport(const document::Document& document, const HtmlSettings& settings = {});

}  // namespace hierfit::report
