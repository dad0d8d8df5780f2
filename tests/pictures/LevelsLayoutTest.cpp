#include <algorithm>
#include <cmath>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/LayOut.h"
#include "tests/pictures/LevelsPictures.h"
#include "tests/pictures/SceneChecks.h"

namespace hierfit {
namespace {

using document::LevelsPicture;
using report::charts::LayOutContent;
using report::charts::Scene;
using test::LevelsSketch;
using test::MakeLevelsPicture;

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

TEST(LevelsLayout, KeepsWordsApartAndWithinTheWidth) {
    for (const LevelsSketch& sketch : Sketches()) {
        const LevelsPicture picture = MakeLevelsPicture(sketch);
        for (const double width : kWidths) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_EQ(test::FaultsOf(scene), std::vector<std::string>()) << Describe(sketch, width);
            const double most = sketch.fIsContrast && sketch.fLevels > 13 ? 40 * 16 + 100 : width;
            EXPECT_LE(scene.fWidth, most + 0.01) << Describe(sketch, width);
        }
    }
}

// The title of levels below each other comes first, over their words.
bool IsTurned(const Scene& scene, const LevelsPicture& picture) {
    const std::vector<std::string> words = test::WordsOf(scene);
    return !words.empty() && words.front() == picture.fPredictor.fTitle;
}

struct Turn {
    const char* fName;
    LevelsSketch fSketch;
    bool fIsTurnedOnDesk;
    bool fIsTurnedOnPhone;
};

const Turn kTurns[] = {
    {"words that fit side by side", {3}, false, false},
    {"words that fit side by side on a desk", {8, 0, 0, 0, "District"}, false, true},
    {"many levels", {40}, true, true},
    {"contrasts never", {40, 0, 0, 0, "Level", "", "", true}, false, false},
    {"numbers never", {40, 0, 0, 0, "Level", "", "", false, true}, false, false},
    {"long words slant in panels", {4, 0, 3, 0, "Unbreakable-dose"}, false, false},
    {"but for the one level of each", {1, 0, 3, 0, "Unbreakable-dose-of-the-first-treatment-arm"}, false, true},
    {"more series than stand side by side", {20, 9, 0, 0, "L"}, true, true},
};

TEST(LevelsLayout, TurnsWhereWordsOrSeriesDoNotStandSideBySide) {
    for (const Turn& turn : kTurns) {
        LevelsPicture picture = MakeLevelsPicture(turn.fSketch);
        picture.fSeries.fHasLegend = false;
        EXPECT_EQ(IsTurned(LayOutContent(picture, kWidths[0]), picture), turn.fIsTurnedOnDesk) << turn.fName;
        EXPECT_EQ(IsTurned(LayOutContent(picture, kWidths[1]), picture), turn.fIsTurnedOnPhone) << turn.fName;
    }
}

TEST(LevelsLayout, ListsGuidesAndMarksInOrderAtEveryWidth) {
    for (const LevelsSketch& sketch : Sketches()) {
        const LevelsPicture picture = MakeLevelsPicture(sketch);
        std::vector<std::string> tips;
        for (const auto& guide : picture.fvGuides) tips.push_back(guide.fTip);
        for (const auto& mark : picture.fvMarks) tips.push_back(mark.fTip);
        std::vector<std::string> shown = test::TipsOf(LayOutContent(picture, kWidths[0]));
        ASSERT_EQ(test::TipsOf(LayOutContent(picture, kWidths[1])), shown) << Describe(sketch, kWidths[1]);
        if (tips.size() > 2000) {  // by their classes
            std::ranges::sort(shown);
            std::ranges::sort(tips);
        }
        ASSERT_EQ(shown, tips) << Describe(sketch, kWidths[0]);
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
    LevelsPicture hollow = MakeLevelsPicture({0, 0, 3, 2});
    for (const LevelsPicture& picture : {huge, equal, sparse, same, hollow}) {
        for (const double width : kWidths) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_EQ(test::FaultsOf(scene), std::vector<std::string>());
            EXPECT_TRUE(std::isfinite(scene.fWidth) && std::isfinite(scene.fHeight));
            EXPECT_LT(scene.fvElements.size(), 60u);
        }
    }
}

std::size_t CountShapes(const Scene& scene) {
    std::size_t shapes = 0;
    for (const report::charts::Element& element : scene.fvElements) shapes += element.fvShapes.size();
    return shapes;
}

TEST(LevelsLayout, StaysSmallWithManyLevels) {
    const Scene scene = LayOutContent(MakeLevelsPicture({10000}), kWidths[0]);
    EXPECT_LT(CountShapes(scene), 12000u);
    EXPECT_LT(scene.fHeight, 30000);
    for (const bool isContrast : {false, true}) {
        LevelsPicture picture = MakeLevelsPicture({1000, 0, 0, 0, "L", "", "", isContrast});
        picture.fPanels.fvAcross.assign(1000, "Panel");
        for (int i = 0; i < 1000; ++i) picture.fvMarks[static_cast<std::size_t>(i)].fPanel = {i, 0};
        EXPECT_LT(CountShapes(LayOutContent(picture, kWidths[0])), 60000u) << "a mark in each of many panels";
    }
}

}  // namespace
}  // namespace hierfit
