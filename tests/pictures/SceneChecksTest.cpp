#include "tests/pictures/SceneChecks.h"

#include "report/charts/layout/Shapes.h"

namespace hierfit {
namespace {

using report::charts::Anchor;
using report::charts::MakeText;
using report::charts::Point;
using report::charts::Scene;
using report::charts::Shape;

Shape Turned(const char* words, Point at, double turn, Anchor anchor = Anchor::Start) {
    Shape shape = MakeText(words, at, report::charts::kLabelStyle, anchor);
    std::get<report::charts::Text>(shape.fForm).fTurn = turn;
    return shape;
}

// Texts in a scene of 100 by 100, and how many faults they have. "words" is 37 px wide.
const std::tuple<const char*, std::vector<Shape>, std::size_t> kCases[] = {
    {"half a line apart", {Turned("words", {10, 20}, 0), Turned("words", {10, 27}, 0)}, 1},
    {"each on each of three", {Turned("a", {9, 20}, 0), Turned("b", {10, 20}, 0), Turned("c", {11, 20}, 0)}, 3},
    {"side by side", {Turned("words", {50, 20}, 0, Anchor::End), Turned("words", {50.1, 20}, 0)}, 0},
    {"slanted, beside each other", {Turned("words", {20, 60}, -40), Turned("words", {45, 60}, -40)}, 0},
    {"slanted, too near", {Turned("words", {20, 60}, -40), Turned("words", {28, 60}, -40)}, 1},
    {"one slanted over the beginning of another", {Turned("words", {20, 60}, -40), Turned("words", {22, 80}, 0)}, 0},
    {"beyond the right", {Turned("words", {70, 20}, 0)}, 1},
    {"beyond the bottom", {Turned("words", {20, 70}, 90)}, 1},
    {"nothing but blanks", {Turned("   ", {99, 99}, 0)}, 0},
    {"too small", {MakeText("words", {10, 20}, {.fSize = 11.5})}, 1},
};

TEST(SceneChecks, FindsWordsThatLieOnEachOtherOrLeaveTheScene) {
    for (const auto& [name, texts, faults] : kCases) {
        EXPECT_EQ(test::FaultsOf({100, 100, {{texts, {}, {}, false}}}).size(), faults) << name;
    }
}

}  // namespace
}  // namespace hierfit
