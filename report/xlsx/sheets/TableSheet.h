#pragma once

#include <optional>
#include <string>

#include "report/layout/Grid.h"
#include "report/xlsx/sheets/SheetWriter.h"

namespace hierfit::report::xlsx {

/// Puts a table on a sheet: title, headers, cells, captions and notes. What keeps it from standing on one, if anything
/// does.
std::optional<std::string> PutTable(BookParts& parts, const std::string& name, const document::Table& table,
                                    std::string_view title);

}  // namespace hierfit::report::xlsx
