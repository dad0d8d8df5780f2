#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

/// Words that several renderings have of their own; what the document holds is in its own language.
namespace hierfit::report::items {

/// What stands in the place of a title that has no visible character.
inline constexpr std::string_view kUntitled = "Untitled";

inline constexpr std::string_view kDiagnostics = "Diagnostics";

inline constexpr std::string_view kNoCells = "This table has no cells.";

inline constexpr std::array<std::string_view, 3> kLevels{"Information", "Warning", "Error"};

/// Levels of messages and diagnostics count from 1; one outside the range is taken as the nearest.
constexpr std::string_view WordOfLevel(int level) {
    return kLevels[static_cast<std::size_t>(std::clamp(level, 1, static_cast<int>(kLevels.size())) - 1)];
}

}  // namespace hierfit::report::items
