#pragma once

#include <algorithm>
#include <array>
#include <string_view>

/// The file's own words, all of them; what the document holds is in its own language.
namespace hierfit::report::docx::words {

inline constexpr std::string_view kTable = "Table";
inline constexpr std::string_view kFigure = "Figure";
inline constexpr std::string_view kContinued = " (continued)";
inline constexpr std::string_view kNoCells = "This table has no cells.";
inline constexpr std::string_view kNoPicture = "The picture is too large to be drawn.";
inline constexpr std::string_view kDiagnostics = "Diagnostics";

/// How grave a message or diagnostic is. Levels count from 1; one outside the range is taken as the nearest.
constexpr std::string_view LevelOf(int level) {
    constexpr std::array<std::string_view, 3> kLevels{"Information", "Warning", "Error"};
    return kLevels[static_cast<std::size_t>(std::clamp(level, 1, static_cast<int>(kLevels.size())) - 1)];
}

}  // namespace hierfit::report::docx::words
