#pragma once

#include <string_view>

/// The file's own words, in English; `items::Say` gives those of the report's language.
namespace hierfit::report::docx::words {

inline constexpr std::string_view kTable = "Table";
inline constexpr std::string_view kFigure = "Figure";
inline constexpr std::string_view kNoPicture = "The picture is too large to be drawn.";

}  // namespace hierfit::report::docx::words
