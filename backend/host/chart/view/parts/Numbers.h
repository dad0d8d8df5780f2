#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "host/chart/view/ShownData.h"

namespace hierfit::chart {

/// A number to six significant digits: enough for a picture, and short in its text.
double Rounded(double number);

/// The same as text, such as "12.5".
std::string ShortNumber(double number);

/// The number at a row that a picture can place: finite, and so small that the difference of two is finite too. Nothing
/// without a variable or past its end.
std::optional<double> PlaceableAt(const ShownVariable* variable, std::size_t row);

/// The same for a limit that a specification sets.
std::optional<double> Placeable(std::optional<double> number);

/// The words of the value at a row; empty without a variable or past its end.
std::string WordsAt(const ShownVariable* variable, std::size_t row);

}  // namespace hierfit::chart
