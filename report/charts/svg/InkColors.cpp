#include "report/charts/svg/InkColors.h"

#include <array>

namespace hierfit::report::charts {

namespace {

// Those of classes are told apart by any kind of sight. The ramp goes from dark violet over green to light olive. All
// that marks are drawn in has a contrast of 3:1 to paper, as they are painted.
constexpr std::array<std::string_view, kInks> kColors = {
    "none",    "#1b1f24", "#5b6470", "#a3abb5", "#e7eaee", "#ffffff", "#8094ac", "#c9ced6",
    "#7f8a96", "#6b8096", "#d55e00",                                                         //
    "#0072b2", "#d55e00", "#07a68a", "#681738", "#3c11a8", "#9568f6", "#b40666", "#5f5716",  //
    "#4b277c", "#382881", "#292c85", "#294389", "#2a5c8d", "#2a7592", "#2c9196", "#2c9b87",  //
    "#2c9b6f", "#2ca056", "#2da43d", "#37a92d", "#4fa52b", "#6ba029", "#879c28", "#98982a"};
static_assert(!kColors.back().empty());

}  // namespace

std::string_view ColorOf(Ink ink) { return kColors.at(static_cast<std::size_t>(ink)); }

}  // namespace hierfit::report::charts
