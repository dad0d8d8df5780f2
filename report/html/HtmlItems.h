#pragma once

#include <string>
#include <vector>

#include "report/html/Contents.h"
#include "report/html/HtmlSettings.h"

namespace hierfit::report::html {

/// Appends the items of a page, headings as nested sections.
void AppendItems(std::string& out, const std::vector<items::Entry>& entries, FullValues values);

/// Appends the section of what the host noticed; nothing if there is none.
void AppendDiagnostics(std::string& out, const document::Document& document);

}  // namespace hierfit::report::html
