#include <algorithm>
#include <cmath>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/LayOut.h"
#include "tests/pictures/SceneChecks.h"

namespace hierfit {
namespace {

using document::LevelMark;
using document::LevelsPicture;
using report::charts::LayOutContent;
using report::charts::Scene;

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

std::vector<std::string> Named(const std::string& word, int count) {
    std::vector<std::string> names;
    for (int number = 1; number <= count; ++number) names.push_back(word + " " + std::to_string(number));
    return names;
}

LevelMark MakeMark(const document::PanelPlace& place, int level, int series, bool isContrast) {
    const double value =
        50 + 8 * std::sin(1.3 * level + 0.7 * series + place.fAcross) + 3 * series + 0.4 * level + place.fDown;
    LevelMark mark{place, level, series, value, value - 4 - level % 3, value + 4 + level % 3, {}, level % 3 == 1, {}};
    if (isContrast) mark.fBase = 52;
    return mark;
}

/// A picture with a mark for each level of each series in each panel, whiskers about all of them, a guide in each panel
/// of contrasts, and a legend where there is something to tell apart. Tips are numbered in order, guides first.
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
    for (int panel = 0; panel < std::max(sketch.fDown, 1) * std::max(sketch.fAcross, 1); ++panel) {
        const document::PanelPlace place{panel % std::max(sketch.fAcross, 1), panel / std::max(sketch.fAcross, 1)};
        if (sketch.fIsContrast) picture.fvGuides.push_back({place, 52, std::to_string(++tips)});
        for (int series = 0; series < std::max(sketch.fSeries, 1); ++series) {
            for (int level = 0; level < sketch.fLevels; ++level) {
                picture.fvMarks.push_back(MakeMark(place, level, series, sketch.fIsContrast));
            }
        }
    }
    for (LevelMark& mark : picture.fvMarks) mark.fTip = std::to_string(++tips);
    return picture;
}

constexpr double kWidths[] = {report::charts::kDeskWidth, report::charts::kPhoneWidth};

std::string Describe(const LevelsSketch& sketch, double width) {
    return std::to_string(sketch.fLevels) + " of " + sketch.fLevelWord.substr(0, 20) + ", " +
           std::to_string(sketch.fSeries) + " series, " + std::to_string(sketch.fAcross) + " by " +
           std::to_string(sketch.fDown) + " panels, " + (sketch.fIsContrast ? "contrasts" : "means") +
           (sketch.fHasNumbers ? " of numbers" : "") + " in " + std::to_string(width);
}

const std::string kLong = "a rather long name that is the same but for its end, which is number";

// Every combination of these.
std::vector<LevelsSketch> Sketches() {
    std::vector<LevelsSketch> sketches;
    for (const int levels : {0, 1, 2, 3, 5, 8, 13, 40}) {
        for (const int series : {0, 1, 2, 9}) {
            for (const auto& [across, down] : {std::pair(0, 0), {1, 0}, {2, 0}, {5, 0}, {3, 2}, {6, 1}}) {
                for (const std::string& word : {std::string("L"), std::string("Middle dose"), kLong}) {
                    sketches.push_back({levels, series, across, down, word, word, "Visit = Week"});
                    if (series == 0) sketches.push_back({levels, 0, across, down, word, word, kLong, true});
                }
                sketches.push_back({levels, series, across, down, "L", "Male", kLong, false, true});
            }
        }
    }
    return sketches;
}

TEST(LevelsLayout, KeepsWordsApartWithinTheWidthAndMarksInOrder) {
    for (const LevelsSketch& sketch : Sketches()) {
        const LevelsPicture picture = MakeLevelsPicture(sketch);
        std::vector<std::string> tips;
        for (const auto& guide : picture.fvGuides) tips.push_back(guide.fTip);
        for (const auto& mark : picture.fvMarks) tips.push_back(mark.fTip);
        const bool isCrowd = tips.size() > 2000;  // whose marks come by their classes
        if (isCrowd) std::ranges::sort(tips);
        for (const double width : kWidths) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_EQ(test::FaultsOf(scene), std::vector<std::string>()) << Describe(sketch, width);
            const double most = sketch.fIsContrast && sketch.fLevels > 13 ? 40 * 16 + 100 : width;
            EXPECT_LE(scene.fWidth, most + 0.01) << Describe(sketch, width);
            std::vector<std::string> shown = test::TipsOf(scene);
            if (isCrowd) std::ranges::sort(shown);
            EXPECT_EQ(shown, tips) << Describe(sketch, width);
        }
    }
}

// Whether levels stand below each other on a desk, and on a phone.
const std::tuple<const char*, LevelsSketch, bool, bool> kTurns[] = {
    {"words that fit side by side", {3}, false, false},
    {"words that fit side by side on a desk", {8, 0, 0, 0, "District"}, false, true},
    {"contrasts never", {40, 0, 0, 0, "Level", "", "", true}, false, false},
    {"numbers never", {40, 0, 0, 0, "Level", "", "", false, true}, false, false},
    {"long words slant in panels", {4, 0, 3, 0, "Unbreakable-dose"}, false, false},
    {"but for the one level of each", {1, 0, 3, 0, "Unbreakable-dose-of-the-first-treatment-arm"}, false, true},
    {"more series than stand side by side", {20, 9, 0, 0, "L"}, true, true},
};

TEST(LevelsLayout, TurnsWhereWordsOrSeriesDoNotStandSideBySide) {
    for (const auto& [name, sketch, isTurnedOnDesk, isTurnedOnPhone] : kTurns) {
        LevelsPicture picture = MakeLevelsPicture(sketch);
        picture.fSeries.fHasLegend = false;
        for (const double width : kWidths) {
            // The title of levels below each other comes first, over their words.
            const bool isTurned = test::WordsOf(LayOutContent(picture, width)).front() == picture.fPredictor.fTitle;
            EXPECT_EQ(isTurned, width == kWidths[0] ? isTurnedOnDesk : isTurnedOnPhone) << name;
        }
    }
}

/// "entry 0", "mark 1: 0 3", ... for all elements with keys.
std::string KeysOf(const Scene& scene) {
    std::string lines;
    for (const report::charts::Element& element : scene.fvElements) {
        if (element.fvKeys.empty()) continue;
        lines += element.fIsEntry ? "entry:" : element.fTip + ":";
        for (const int key : element.fvKeys) lines += " " + std::to_string(key);
        lines += element.fIsEntry ? "; " : ", ";
    }
    return lines;
}

TEST(LevelsLayout, LinksMarksOfASeriesAndOfALevel) {
    const std::pair<LevelsSketch, const char*> kKeys[] = {
        {{3}, ""},
        {{2, 2}, "entry: 0; entry: 1; 1: 0 2, 2: 0 3, 3: 1 2, 4: 1 3, "},
        {{1, 0, 2}, "1: 0, 2: 0, "},
        {{2, 0, 2, 0, "L", "", "P", true}, "entry: 0; entry: 1; 3: 1 2, 4: 0 3, 5: 1 2, 6: 0 3, "},
        {{1, 0, 0, 0, "L", "", "P", true}, "entry: 1; 2: 1, "},
    };
    const Scene crowd = LayOutContent(MakeLevelsPicture({1001, 2}), kWidths[0]);  // by series alone
    for (const report::charts::Element& element : crowd.fvElements) EXPECT_LE(element.fvKeys.size(), 1u);
    for (const auto& [sketch, keys] : kKeys) {
        EXPECT_EQ(KeysOf(LayOutContent(MakeLevelsPicture(sketch), kWidths[0])), keys) << Describe(sketch, kWidths[0]);
    }
}

TEST(LevelsLayout, CutsNamesSoThatTheyDiffer) {
    for (const LevelsSketch& sketch : {LevelsSketch{30, 0, 0, 0, kLong}, LevelsSketch{12, 0, 0, 0, kLong, "", "", true},
                                       LevelsSketch{2, 9, 5, 0, "L", kLong, kLong}}) {
        for (const double width : kWidths) {
            std::vector<std::string> words = test::WordsOf(LayOutContent(MakeLevelsPicture(sketch), width));
            std::erase_if(words, [](const std::string& word) { return word.find("\u2026") == std::string::npos; });
            std::ranges::sort(words);
            EXPECT_EQ(std::ranges::adjacent_find(words), words.end()) << Describe(sketch, width);
        }
    }
}

TEST(LevelsLayout, HoldsToItsLimitsWhateverThePicture) {
    LevelsPicture huge = MakeLevelsPicture({3, 2});
    huge.fvMarks[0].fHigh = 8e307;
    huge.fvMarks[1].fLow = -8e307;
    LevelsPicture equal = MakeLevelsPicture({3});
    equal.fValues.fLow = equal.fValues.fHigh = 51.0;
    LevelsPicture sparse = MakeLevelsPicture({2, 0, 300, 300});
    sparse.fvMarks.resize(3);
    LevelsPicture same = MakeLevelsPicture({2, 0, 0, 0, "L", "", "", false, true});
    same.fvNumbers = {1e300, 1e300};
    for (const LevelsPicture& picture : {huge, equal, sparse, same, MakeLevelsPicture({0, 0, 3, 2})}) {
        for (const double width : kWidths) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_EQ(test::FaultsOf(scene), std::vector<std::string>());
            EXPECT_LT(scene.fvElements.size(), 60u);
        }
    }
}

}  // namespace
}  // namespace hierfit
