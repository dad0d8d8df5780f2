#pragma once

#include <string>
#include <string_view>

#include "host/document/Table.h"
#include "report/latex/Needs.h"

namespace hierfit::report::latex {

/// Appends a table as a float, or as several where its columns part; one of more than a page as a table that goes on
/// over pages. Texts that are too long for a table follow it as paragraphs.
void AppendTable(std::string& out, const document::Table& table, std::string_view title, std::string_view anchor,
                 Needs& needs);

}  // namespace hierfit::report::latex
