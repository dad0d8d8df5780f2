#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::report {

/// Whether a page carries the script by which tables are copied, pictures saved and marks pointed at.
enum class Scripts : unsigned char { Yes, No };

/// The document as one HTML page that needs nothing else, UTF-8. All of it can be read without the script.
std::string MakeHtmlReport(const document::Document& document, Scripts scripts = Scripts::Yes);

}  // namespace hierfit::report
