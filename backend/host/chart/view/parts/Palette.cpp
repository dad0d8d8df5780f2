#include "host/chart/view/parts/Palette.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace hierfit::chart {

namespace {

constexpr std::array<std::string_view, 8> kColors = {palette::kFirst, palette::kSetOff, "#07a68a", "#681738",
                                                     "#3c11a8",       "#9568f6",        "#b40666", "#5f5716"};
constexpr std::array<std::string_view, 8> kShapes = {"circle", "square",        "triangle-up",    "diamond",
                                                     "cross",  "triangle-down", "triangle-right", "triangle-left"};

/// From dark violet over green to light olive. `part` runs from 0 to 1.
std::string RampColor(double part) {
    return fmt::format("hsl({:.0f}, {:.0f}%, {:.0f}%)", 265 - 205 * part, 52 + 8 * part, 32 + 14 * part);
}

}  // namespace

std::vector<std::string> LevelColors(std::size_t count) {
    if (count <= kColors.size()) return {kColors.begin(), kColors.begin() + static_cast<std::ptrdiff_t>(count)};
    std::vector<std::string> colors;
    for (std::size_t i = 0; i < count; ++i) {
        colors.push_back(RampColor(static_cast<double>(i) / static_cast<double>(count - 1)));
    }
    return colors;
}

std::vector<std::string> LevelShapes(std::size_t count) {
    std::vector<std::string> shapes;
    for (std::size_t i = 0; i < count; ++i) shapes.emplace_back(kShapes[i % kShapes.size()]);
    return shapes;
}

}  // namespace hierfit::chart
