#include "tests/pictures/LevelsPictures.h"

#include <algorithm>
#include <cmath>

namespace hierfit::test {

using document::LevelMark;
using document::LevelsPicture;
using document::PanelPlace;

namespace {

std::vector<std::string> Named(const std::string& word, int count) {
    std::vector<std::string> names;
    for (int number = 1; number <= count; ++number) names.push_back(word + " " + std::to_string(number));
    return names;
}

LevelMark MakeMark(const PanelPlace& place, int level, int series, bool isContrast) {
    LevelMark mark{place, level, series, 0, {}, {}, {}, level % 3 == 1, {}};
    mark.fValue =
        50 + 8 * std::sin(1.3 * level + 0.7 * series + place.fAcross) + 3 * series + 0.4 * level + place.fDown;
    mark.fLow = mark.fValue - 4 - level % 3;
    mark.fHigh = mark.fValue + 4 + level % 3;
    if (isContrast) mark.fBase = 52;
    return mark;
}

}  // namespace

LevelsPicture MakeLevelsPicture(const LevelsSketch& sketch) {
    LevelsPicture picture;
    picture.fIsContrast = sketch.fIsContrast;
    picture.fValues.fTitle = "Estimated mean of the average reaction time (ms)";
    picture.fPredictor.fTitle = "Treatment arm";
    picture.fvLevels = Named(sketch.fLevelWord, sketch.fLevels);
    for (int level = 0; sketch.fHasNumbers && level < sketch.fLevels; ++level)
        picture.fvNumbers.push_back(level * 12.5);
    picture.fSeries = {"Sex of the subject", Named(sketch.fSeriesWord, sketch.fSeries), sketch.fSeries > 0};
    picture.fEmphasis = {"Significant", "Not Significant", sketch.fIsContrast};
    picture.fPanels = {Named(sketch.fPanelWord, sketch.fAcross), Named(sketch.fPanelWord, sketch.fDown), 0};
    int tips = 0;
    for (int down = 0; down < std::max(sketch.fDown, 1); ++down) {
        for (int across = 0; across < std::max(sketch.fAcross, 1); ++across) {
            if (sketch.fIsContrast) picture.fvGuides.push_back({{across, down}, 52, std::to_string(++tips)});
            for (int series = 0; series < std::max(sketch.fSeries, 1); ++series) {
                for (int level = 0; level < sketch.fLevels; ++level) {
                    picture.fvMarks.push_back(MakeMark({across, down}, level, series, sketch.fIsContrast));
                }
            }
        }
    }
    for (LevelMark& mark : picture.fvMarks) mark.fTip = std::to_string(++tips);
    return picture;
}

}  // namespace hierfit::test
