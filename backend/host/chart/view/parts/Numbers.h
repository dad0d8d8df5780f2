#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "host/chart/view/ShownVariable.h"

namespace hierfit::chart {

/// A number to ten significant digits: enough for a picture far from zero, and short in its text.
double Rounded(double number);

/// The same for a place within a range: to more digits where ten would not tell places apart.
double Rounded(double number, double range);

/// A number in words, such as "12.5": to six significant digits, a large one to ten.
std::string ShortNumber(double number);

/// The format of the ticks of an axis, in the notation of d3-format: as many decimals as tell the ticks apart, the same
/// for all, such as ".2f"; of very long numbers the digits that differ.
std::string TickFormat(double low, double high, int tickCount);

/// The number at a row that a picture can place: finite, and so small that the difference of two is finite too. Nothing
/// without a variable or past its end.
std::optional<double> PlaceableAt(const ShownVariable* variable, std::size_t row);

/// The same for a limit that a specification sets.
std::optional<double> Placeable(std::optional<double> number);

/// What an axis of one single number shows on either side of it: 0.5, or more where that would be too little to tell.
double RoomAbout(double number);

/// The words of the value at a row; empty without a variable or past its end.
std::string WordsAt(const ShownVariable* variable, std::size_t row);

}  // namespace hierfit::chart
