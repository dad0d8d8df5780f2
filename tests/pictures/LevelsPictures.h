#pragma once

#include <string>

#include "host/document/Picture.h"

namespace hierfit::test {

/// What a made-up picture of levels is like. Names of levels, series and panels are made of a word and a number.
struct LevelsSketch {
    int fLevels = 3;
    int fSeries = 0;
    int fAcross = 0;  ///< panels
    int fDown = 0;
    std::string fLevelWord = "Level";
    std::string fSeriesWord = "Series";
    std::string fPanelWord = "Panel";
    bool fIsContrast = false;
    bool fHasNumbers = false;
};

/// A picture with a mark for each level of each series in each panel, whiskers about all of them, a guide in each panel
/// of contrasts, and a legend where there is something to tell apart. Tips are numbered in order, guides first.
document::LevelsPicture MakeLevelsPicture(const LevelsSketch& sketch);

}  // namespace hierfit::test
