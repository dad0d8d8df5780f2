#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/levels/LevelsAxis.h"

namespace hierfit::report::charts {

/// How levels stand, and how many panels side by side.
struct LevelsArrangement {
    LevelsStand fStand = LevelsStand::SideBySide;
    int fColumns = 1;
};

/// What a picture of levels is arranged for.
struct LevelsRoom {
    double fWidth = 0;   ///< of the whole
    double fBeside = 0;  ///< of it, for the words of the values' axis
};

/// The best arrangement that fits: words side by side rather than aslant, aslant rather than below each other, and more
/// panels in a row rather than fewer. Contrasts are never turned: their caption says that lines are horizontal.
LevelsArrangement Arrange(const document::LevelsPicture& picture, const LevelsRoom& room);

/// The width that a plot may have beside others.
double WidthForPlot(const document::LevelsPicture& picture, int columns, const LevelsRoom& room);

/// The width that a plot asks for at most; words side by side and the marks of all series have room.
double WidthAskedFor(const document::LevelsPicture& picture, LevelsStand stand, double most);

/// The least height of one level where levels stand below each other, for the marks of its series.
double LeastSlotBelow(const document::LevelsPicture& picture);

/// Pixels between the series of a level.
double DodgeIn(const document::LevelsPicture& picture, double slot);

}  // namespace hierfit::report::charts
