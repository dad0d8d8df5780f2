#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "report/charts/layout/Axes.h"

namespace hierfit::report::charts {

/// Sets each name in lines of at most its width, `mostLines` of them. Those that need more are cut, so that they
/// differ. There are as many widths as names.
std::vector<std::vector<std::string>> SetNames(const std::vector<std::string>& names, const std::vector<double>& widths,
                                               std::size_t mostLines);

/// Which of the rectangles lie on none of those that come before them in order of their upper edges. In n log n, and
/// linear where rectangles of a height are not wider than those that lie free.
std::vector<bool> AreFree(const std::vector<Frame>& frames);

}  // namespace hierfit::report::charts
