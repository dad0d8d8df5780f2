#include <chrono>

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

}  // namespace
}  // namespace hierfit
