#pragma once

#include <optional>

namespace hierfit::plausible {

/// Tail probabilities, good to about ten decimals. Nothing where there is no such distribution or the series does not
/// converge. Degrees of freedom may be fractions; above ten million they count as ten million.

/// Of a standard normal value at least as far from 0.
double TwoSidedNormal(double z);

/// Of a t value at least as far from 0, for degrees of freedom above 0.
std::optional<double> TwoSidedT(double t, double df);

/// Of an F value at least as large, for F from 0 and degrees of freedom above 0.
std::optional<double> UpperF(double f, double df1, double df2);

}  // namespace hierfit::plausible
