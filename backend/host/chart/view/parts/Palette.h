#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::chart {

namespace palette {
inline constexpr std::string_view kInk = "#1b1f24";
inline constexpr std::string_view kSoftInk = "#5b6470";
inline constexpr std::string_view kAxis = "#a3abb5";
inline constexpr std::string_view kGrid = "#e7eaee";
inline constexpr std::string_view kFirst = "#0072b2";
inline constexpr std::string_view kSetOff = "#d55e00";  ///< what is significant
inline constexpr std::string_view kQuiet = "#7f8a96";   ///< what is not
inline constexpr std::string_view kPaper = "#ffffff";
inline constexpr std::string_view kBar = "#c6d3e1";
inline constexpr std::string_view kBoxEdge = "#c9ced6";
inline constexpr std::string_view kPlainLink = "#7f93a8";
}  // namespace palette

/// Colours that tell eight levels apart, for any kind of sight; a ramp beyond eight.
std::vector<std::string> LevelColors(std::size_t count);

/// Shapes, repeated after eight.
std::vector<std::string> LevelShapes(std::size_t count);

}  // namespace hierfit::chart
