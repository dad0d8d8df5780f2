#pragma once

#include <optional>
#include <string>
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

/// A number in words, such as "12.5": to six significant digits, a large one to ten.
std::string ShortNumber(double number);

/// The farthest from zero that a picture places a number: the difference of two is finite too.
inline constexpr double kFarthest = 1e300;

/// A number where a picture can place it, else nothing.
std::optional<double> Placeable(std::optional<double> number);

/// What an axis of one single number shows on either side of it: 0.5, or more where that would be too little to tell.
double RoomAbout(double number);

}  // namespace hierfit::chart
