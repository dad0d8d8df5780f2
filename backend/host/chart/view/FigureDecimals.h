#pragma once

#include <optional>
#include <vector>

#include "host/document/Chart.h"

namespace hierfit::chart {

/// Whether a number is a figure: finite, and not the system-missing value.
bool IsFigure(double number);

/// How many decimals show three significant digits, at most 8. The number is not zero.
int DecimalsFor(double number);

/// The decimals of figures that stand in one column: three significant digits of the least, as far as those of the
/// greatest do not become too many, and two of the distance between them. Nothing where all are whole.
std::optional<int> CommonDecimals(const std::vector<document::ChartValue>& values);

}  // namespace hierfit::chart
