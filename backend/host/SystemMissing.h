#pragma once

#include <limits>

namespace hierfit {

/// The number that stands for "no number": minus the largest finite double, about -1.7977e308. It is compared exactly.
inline constexpr double kSystemMissing = -std::numeric_limits<double>::max();

}  // namespace hierfit
