#pragma once

#include <string_view>

/// The file's own words, all of them; what the document holds is in its own language.
namespace hierfit::report::docx::words {

inline constexpr std::string_view kTable = "Table";
inline constexpr std::string_view kFigure = "Figure";
inline constexpr std::string_view kContinued = " (continued)";
inline constexpr std::string_view kNoPicture = "The picture is too large to be drawn.";

}  // namespace hierfit::report::docx::words
