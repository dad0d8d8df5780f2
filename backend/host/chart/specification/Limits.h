#pragma once

#include <cstddef>

namespace hierfit::chart {

/// Chart XML that is longer is not read.
inline constexpr std::size_t kMostChartBytes = std::size_t{16} << 20U;

}  // namespace hierfit::chart
