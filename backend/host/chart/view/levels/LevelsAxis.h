#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/chart/view/levels/LevelsItems.h"

namespace hierfit::chart {

/// How the levels of a chart are laid out: along x, or below each other along y; the size of one panel; how their
/// words stand. Pixels and degrees.
struct LevelsAxis {
    bool fIsTurned = false;  ///< levels below each other
    double fWidth = 0;
    double fHeight = 0;
    double fSlot = 0;                               ///< along the axis, for one level
    int fAngle = 0;                                 ///< of the words: 0, -40 or -90
    double fRoom = 0;                               ///< for the words of one level, along them
    double fDodge = 0;                              ///< from one colour to the next, as a part of a slot
    std::vector<std::vector<std::string>> fvTexts;  ///< the lines of each level's words

    bool HasLines() const;  ///< whether some words take more than one line

    /// The definition of the axis's channel for field "at".
    Json Channel(const std::string& title) const;
};

LevelsAxis LayOutLevels(const LevelsItems& items, bool isNeverTurned);

}  // namespace hierfit::chart
