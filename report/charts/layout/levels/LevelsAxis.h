#pragma once

#include <string>
#include <vector>

#include "host/document/Picture.h"
#include "report/charts/layout/Axes.h"

namespace hierfit::report::charts {

/// How levels stand along their axis.
enum class LevelsStand : unsigned char {
    SideBySide,  ///< their words in a few lines each
    Slanted,     ///< side by side, their words aslant
    Upright,     ///< side by side, their words turned
    Below,       ///< below each other, the values level: the picture is turned
    Numbers,     ///< they are numbers, each at its place
};

/// The axis of levels, ready to be drawn once it is known where.
struct LevelsAxis {
    LevelsStand fStand = LevelsStand::SideBySide;
    double fSlot = 0;    ///< pixels from level to level, where they are no numbers
    double fLength = 0;  ///< pixels of all
    double fRoom = 0;    ///< that words take across the axis, with their distance from the plot
    std::vector<std::vector<std::string>>
        fvWords;                       ///< of each level, in lines; of many levels every so many-th has any
    std::vector<std::size_t> fvNamed;  ///< levels whose words are drawn, ascending; `NameLevels` chooses them
    NumberAxis fNumbers;               ///< of numbers

    bool IsTurned() const { return fStand == LevelsStand::Below; }
};

/// The least slot in which the words of all levels stand side by side in a few lines, without a break in a word; none
/// is enough where it is above `most`.
double LeastSlotSideBySide(const document::LevelsPicture& picture, double most);

/// The least slots in which words may slant, and in which they may stand.
inline constexpr double kLeastSlanted = 24;
inline constexpr double kLeastUpright = 16;

/// Levels side by side, or numbers, over a plot so wide. Slanted and upright words are cut to `mostWords`. An axis of
/// more levels than may stand in the length is longer.
LevelsAxis MakeLevelAxis(const document::LevelsPicture& picture, LevelsStand stand, double length, double mostWords);

/// Levels below each other. The slot has room for marks of so much height; words take `mostWords` across.
LevelsAxis MakeTurnedAxis(const document::LevelsPicture& picture, double leastSlot, double mostWords);

/// How far slanted words need the first plot to stand from the left, for `columns` plots that share what is left of the
/// width beside it.
double OverhangOf(const LevelsAxis& axis, double width, int columns);

/// From the place of a level or number to pixels.
Scale ScaleOf(const LevelsAxis& axis, const Frame& plot);

/// Chooses the levels whose words each of so many panels draws: those that have any, or every so many-th of them where
/// many levels meet many panels.
void NameLevels(LevelsAxis& axis, std::size_t panels);

/// A line below the plot, but not beside levels below each other, and the words.
void AddLevels(Scene& scene, const LevelsAxis& axis, const Frame& plot);

}  // namespace hierfit::report::charts
