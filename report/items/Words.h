#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "report/items/Wording.h"

/// Words that several renderings have of their own, in English; `Say` gives those of the report's language.
namespace hierfit::report::items {

/// What stands in the place of a title that has no visible character.
inline constexpr std::string_view kUntitled = "Untitled";

inline constexpr std::string_view kDiagnostics = "Diagnostics";
inline constexpr std::string_view kContinued = "continued";
inline constexpr std::string_view kChart = "Chart";
inline constexpr std::string_view kMoreRow = "... and ^1 more row";
inline constexpr std::string_view kMoreRows = "... and ^1 more rows";
inline constexpr std::string_view kNoCells = "This table has no cells.";

inline constexpr std::array<std::string_view, 3> kLevels{"Information", "Warning", "Error"};

/// Levels of messages and diagnostics count from 1; one outside the range is taken as the nearest.
inline std::string_view WordOfLevel(int level) {
    return Say(kLevels[static_cast<std::size_t>(std::clamp(level, 1, static_cast<int>(kLevels.size())) - 1)]);
}

}  // namespace hierfit::report::items
