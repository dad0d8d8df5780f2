#include <algorithm>
#include <set>

#include "report/charts/layout/Content.h"
#include "tests/pictures/DiagramChecks.h"
#include "tests/pictures/SceneChecks.h"

namespace hierfit {
namespace {

using namespace document;
using report::charts::Circle;
using report::charts::Dash;
using report::charts::Element;
using report::charts::Ink;
using report::charts::LayOutContent;
using report::charts::Point;
using report::charts::Scene;
using report::charts::Text;

using test::kWidths;

/// Every node is joined with the next; the first line of each panel is set off.
CirclePicture Circles(const std::vector<std::string>& names, int panels, int rows = 0) {
    CirclePicture picture;
    picture.fEmphasis = {"Significant", "Not significant", true};
    for (int panel = 0; panel < panels; ++panel) {
        picture.fPanels.fvAcross.push_back("Variety of oats = number " + std::to_string(panel));
    }
    for (int row = 0; row < rows; ++row) picture.fPanels.fvDown.push_back("Phosphate = " + std::to_string(row));
    for (int panel = 0; panel < std::max(panels, 1) * std::max(rows, 1); ++panel) {
        CirclePanel& made = picture.fvPanels.emplace_back();
        made.fPlace = {panel % std::max(panels, 1), panel / std::max(panels, 1)};
        for (std::size_t at = 0; at < names.size(); ++at) {
            const std::string number = std::to_string(panel) + "." + std::to_string(at);
            made.fvNodes.push_back({names[at], "node " + number});
            if (at > 0) made.fvLinks.push_back({static_cast<int>(at) - 1, static_cast<int>(at), 0.5, at == 1, number});
        }
    }
    return picture;
}

TEST(CircleLayout, NamesStandClearWithinTheWidthAndMarksInOneOrder) {
    for (const int count : {0, 1, 2, 8, 9, 11, 13, 14, 15, 40, 200}) {
        for (const char* kind : {"short", "equal", "long", "unbroken"}) {
            for (const auto& [panels, rows] : {std::pair(0, 0), std::pair(4, 0), std::pair(2, 3), std::pair(4, 2)}) {
                SCOPED_TRACE(std::to_string(count) + " " + kind + " in " + std::to_string(panels) + " by " +
                             std::to_string(rows) + " panels");
                const CirclePicture picture = Circles(test::NamesOf(kind, count), panels, rows);
                const auto ofPanel = static_cast<std::size_t>(std::max(2 * count - 1, 0));
                test::CheckLayouts([&](double width) { return LayOutContent(picture, width); },
                                   picture.fvPanels.size() * ofPanel);
            }
        }
    }
}

Point PlaceOf(const Element& node) { return std::get<Circle>(node.fvShapes.front().fForm).fAt; }

/// Where each of the nodes stands, as seen from the middle of all of them: "above", "right" and so on.
std::vector<std::string> SidesOf(const Scene& scene) {
    std::vector<Point> places;
    Point middle;
    for (const Element* mark : test::MarksOf(scene)) {
        if (!mark->fTip.starts_with("node")) continue;
        places.push_back(PlaceOf(*mark));
        middle.fX += places.back().fX;
        middle.fY += places.back().fY;
    }
    std::vector<std::string> sides;
    for (const Point& place : places) {
        const double right = place.fX - middle.fX / static_cast<double>(places.size());
        const double down = place.fY - middle.fY / static_cast<double>(places.size());
        std::string side = down < -1 ? "above" : down > 1 ? "below" : "";
        if (std::abs(right) > 1) side += right > 0 ? "right" : "left";
        sides.push_back(side);
    }
    return sides;
}

TEST(CircleLayout, NodesGoFromTheTopClockwise) {
    using Sides = std::vector<std::string>;
    const auto sides = [](int count) { return SidesOf(LayOutContent(Circles(test::NamesOf("short", count), 0), 708)); };
    EXPECT_EQ(sides(2), Sides({"left", "right"}));
    EXPECT_EQ(sides(3), Sides({"above", "belowright", "belowleft"}));
    EXPECT_EQ(sides(4), Sides({"above", "right", "below", "left"}));
}

/// How many of the names are shown, and whether any of them is turned.
std::pair<int, bool> ShownNames(const Scene& scene) {
    int shown = 0;
    bool isTurned = false;
    for (const Element* mark : test::MarksOf(scene)) {
        if (!mark->fTip.starts_with("node") || mark->fvShapes.size() < 2) continue;
        ++shown;
        isTurned = isTurned || std::get<Text>(mark->fvShapes[1].fForm).fTurn != 0;
    }
    return {shown, isTurned};
}

TEST(CircleLayout, NamesTurnBeyondFourteenAndAreLeftOutOnlyWhereTheyWouldCollide) {
    for (const auto& [count, width, shown, isTurned] :
         {std::tuple(14, 708.0, 14, false), std::tuple(14, 328.0, 14, false), std::tuple(15, 328.0, 15, true),
          std::tuple(40, 328.0, 40, true), std::tuple(100, 708.0, 100, true), std::tuple(200, 708.0, 100, true)}) {
        std::vector<std::string> names = test::NamesOf("short", count);
        for (std::string& name : names) name.insert(0, "District ");
        EXPECT_EQ(ShownNames(LayOutContent(Circles(names, 0), width)), std::pair(shown, isTurned)) << count;
    }
}

TEST(CircleLayout, NamesThatBeginAlikeAreToldApart) {
    for (const int count : {9, 40}) {
        for (const double width : kWidths) {
            const Scene scene = LayOutContent(Circles(test::NamesOf("unbroken", count), 0), width);
            std::set<std::vector<std::string>> shown;
            for (const Element* mark : test::MarksOf(scene)) {
                if (mark->fTip.starts_with("node")) shown.insert(test::WordsOf({0, 0, {*mark}}));
            }
            EXPECT_EQ(shown.size(), static_cast<std::size_t>(count)) << width;
        }
    }
}

TEST(CircleLayout, WhatIsSetOffIsDrawnLastSolidAndWide) {
    CirclePicture picture = Circles(test::NamesOf("short", 4), 0);
    picture.fvPanels[0].fvLinks[0].fShare = 1;
    const Scene scene = LayOutContent(picture, kWidths[0]);
    EXPECT_EQ(test::TipsOf(scene),
              std::vector<std::string>({"0.2", "0.3", "0.1", "node 0.0", "node 0.1", "node 0.2", "node 0.3"}));
    const auto marks = test::MarksOf(scene);
    const auto& rest = marks[0]->fvShapes.front().fPaint;
    const auto& setOff = marks[2]->fvShapes.front().fPaint;
    EXPECT_EQ(rest.fStroke, Ink::Quiet);
    EXPECT_EQ(rest.fDash, Dash::Short);
    EXPECT_DOUBLE_EQ(rest.fStrokeWidth, 2.35);
    EXPECT_EQ(setOff.fStroke, Ink::SetOff);
    EXPECT_EQ(setOff.fDash, Dash::Solid);
    EXPECT_DOUBLE_EQ(setOff.fStrokeWidth, 4);
}

TEST(CircleLayout, TheRestIsFainterTheMoreLinesThereAre) {
    double opacity = 1;
    for (const int count : {3, 150, 300, 1000}) {
        const Scene scene = LayOutContent(Circles(test::NamesOf("short", count), 0), kWidths[0]);
        const double now = test::MarksOf(scene).front()->fvShapes.front().fPaint.fOpacity;
        EXPECT_LT(now, opacity);
        EXPECT_GT(now, 0.1);
        opacity = now;
    }
}

TEST(CircleLayout, KeysBringTogetherWhatBelongsTogetherInEveryPanel) {
    const Scene scene = LayOutContent(Circles(test::NamesOf("short", 3), 2), kWidths[0]);
    using Tips = std::vector<std::string>;
    const auto marks = test::MarksOf(scene);
    const auto node = std::ranges::find(marks, "node 1.1", &Element::fTip);
    EXPECT_EQ(test::TipsWithKeysOf(scene, **node), Tips({"1.2", "1.1", "node 1.1"}));
    EXPECT_EQ(test::TipsWithKeysOf(scene, *test::EntryOf(scene, "Significant")), Tips({"0.1", "1.1"}));
    EXPECT_EQ(test::TipsWithKeysOf(scene, *test::EntryOf(scene, "Not significant")), Tips({"0.2", "1.2"}));
}

TEST(CircleLayout, TheLegendHoldsWhatOccurs) {
    CirclePicture picture = Circles({"a", "b"}, 0);
    EXPECT_EQ(test::EntryOf(LayOutContent(picture, 708), "Not significant"), nullptr);
    picture.fEmphasis.fHasLegend = false;
    EXPECT_EQ(test::EntryOf(LayOutContent(picture, 708), "Significant"), nullptr);
}

TEST(CircleLayout, LinksOfACrowdComeByTheirPaint) {
    CirclePicture picture = Circles(test::NamesOf("short", 3), 0);
    for (int at = 0; at < 2001; ++at)
        picture.fvPanels[0].fvLinks.push_back({at % 3, (at + 1) % 3, at % 100 / 100.0, false, "x"});
    std::size_t runs = 0;
    report::charts::Paint last;
    const Scene scene = LayOutContent(picture, kWidths[0]);
    for (const Element* mark : test::MarksOf(scene)) {
        if (mark->fTip == "x" && mark->fvShapes.front().fPaint != last) ++runs;
        last = mark->fvShapes.front().fPaint;
    }
    EXPECT_EQ(runs, 8u);  // widths of 0.5 to 4 pixels in steps of a half
}

TEST(CircleLayout, StandsWhatNoModelSends) {
    CirclePicture wide = Circles({"a", "b", "c"}, 0);
    for (int at = 0; at < 20000; ++at) wide.fvPanels[0].fvLinks.push_back({at % 3, (at + 1) % 3, 1e300, false, "x"});
    CirclePicture empty = Circles({}, 3);
    empty.fvPanels.clear();
    for (const CirclePicture& picture : {wide, empty, Circles(test::NamesOf("short", 20000), 0),
                                         Circles(test::NamesOf("equal", 2), 10000), Circles({"a"}, 100, 100)}) {
        for (const double width : {708.0, 328.0, 10.0}) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_TRUE(test::AreMarksInside(scene));
            EXPECT_TRUE(width == 10 || scene.fWidth <= width);
        }
    }
}

}  // namespace
}  // namespace hierfit
