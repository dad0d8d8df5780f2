#pragma once

#include <cstddef>

#include "host/document/Chart.h"
#include "host/document/Table.h"

namespace hierfit::report {

/// Whether there are values to print below a chart.
bool HasTable(const document::ChartShown& shown);

/// The values of a chart as a table like any other, untitled: a row for each of the first `mostRows`, a column for each
/// column. What reads as a number is one.
document::Table MakeShownTable(const document::ChartShown& shown, std::size_t mostRows);

}  // namespace hierfit::report
