#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/Legend.h"
#include "report/charts/layout/levels/LevelsPlan.h"

namespace hierfit::report::charts {

/// Where marks stand, and how large they are. It borrows all that it is made of.
struct LevelsPlaces {
    const document::LevelsPicture* fpPicture;
    const LevelsPlan* fpPlan;
    double fDodge = 0;   ///< pixels between the series of a level
    double fRadius = 0;  ///< of points
};

/// For a plan whose panels are placed.
LevelsPlaces PlacesOf(const document::LevelsPicture& picture, const LevelsPlan& plan);

// A mark and the entries of the legend go together by the class that they are of: of series, or in contrasts 0 for what
// is set off and 1 for the rest. Where several marks are of one level, they go together by that too: its key is its
// number behind those of the classes, unless they are a crowd. Where nothing can go together, marks have no keys.

/// The legend of series or of emphasis; without entries where the picture has none.
Legend LegendOf(const document::LevelsPicture& picture);

/// What lies behind the marks: lines that join the means of a series, and bands where levels are numbers.
void AddTrends(Scene& scene, const LevelsPlaces& places);

/// Guides, then marks, each one element, in the picture's order.
void AddMarks(Scene& scene, const LevelsPlaces& places);

}  // namespace hierfit::report::charts
