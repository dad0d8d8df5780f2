#pragma once

#include <string_view>

/// The heads of the contents' columns, in English; `items::Say` gives those of the report's language.
namespace hierfit::report::xlsx::words {

inline constexpr std::string_view kName = "Name";
inline constexpr std::string_view kKind = "Kind";
inline constexpr std::string_view kTitle = "Title";

}  // namespace hierfit::report::xlsx::words
