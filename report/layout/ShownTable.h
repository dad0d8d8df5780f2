#pragma once

#include <cstddef>
#include <vector>

#include "host/document/Picture.h"
#include "host/document/Table.h"

namespace hierfit::report {

/// The tables that have values to print below a picture. They are the picture's own.
std::vector<const document::ChartTable*> FindShownTables(const document::Picture& picture);

/// The values of a chart as a table like any other, untitled: the first `mostRows` of its rows, keys as row headers,
/// all other columns as columns. What reads as a number there is one.
document::Table MakeShownTable(const document::ChartTable& shown, std::size_t mostRows);

}  // namespace hierfit::report
