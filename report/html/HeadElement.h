#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/html/HtmlSettings.h"

namespace hierfit::report::html {

/// Appends the `head` of a page: its policy, title and style sheet, by whom it was written and by which program.
void AppendHeadElement(std::string& out, std::string_view title, std::string_view producer,
                       const HtmlSettings& settings);

/// Appends one of the facts that stand below a page's title, which are a `dl`; nothing without values.
void AppendFact(std::string& out, std::string_view name, const std::vector<std::string>& values);

}  // namespace hierfit::report::html
