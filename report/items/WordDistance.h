#pragma once

#include <cstddef>
#include <string_view>

namespace hierfit::report::items {

/// How many letters have to be put in, taken out or changed to make one word of the other (Levenshtein), whatever
/// their case. It takes time and memory by the product of their lengths.
std::size_t DistanceBetween(std::string_view from, std::string_view to);

}  // namespace hierfit::report::items
