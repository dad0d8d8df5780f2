#include <algorithm>
#include <cmath>
#include <set>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/text/TextWidth.h"
#include "tests/pictures/DiagramChecks.h"
#include "tests/pictures/SceneChecks.h"

namespace hierfit {
namespace {

using namespace document;
using report::charts::Dash;
using report::charts::Element;
using report::charts::Ink;
using report::charts::LayOutContent;
using report::charts::Line;
using report::charts::Rectangle;
using report::charts::Scene;

using test::kWidths;

HistogramPicture Bins() {
    HistogramPicture histogram;
    for (int bin = 0; bin < 10; ++bin) {
        histogram.fvBins.push_back({20.0 * bin, 20.0 * bin + 20, bin + 1.0, "bin " + std::to_string(bin)});
    }
    return histogram;
}

/// Nodes on an arc left of the target, as diagrams of models have them; weights 1 to 9, and the second half negative.
NetworkPicture Network(const std::vector<std::string>& names, const std::string& target = "Yield of peas") {
    NetworkPicture picture;
    const auto count = static_cast<double>(names.size());
    const double radius = std::max(count, 1.0);
    picture.fHighX = radius * 4 / 3;
    picture.fTarget = {radius, (count + 1) / 2, target, "target"};
    picture.fWeights = {"Significance", 1, 9, {}};
    picture.fSigns = {"Coefficient", {"Positive", "Negative"}, true};
    picture.fIsLastNegative = true;
    picture.fTypes = {"Type", {"Continuous", "Categorical"}, true};
    picture.fvKinds = {NodeKind::Continuous, NodeKind::Categorical};
    for (int weight = 1; weight <= 9; ++weight) {
        picture.fWeights.fvEntries.push_back({1.0 * weight, "w" + std::to_string(weight)});
    }
    for (std::size_t at = 0; at < names.size(); ++at) {
        const double y = count - static_cast<double>(at);
        const double x = radius - std::sqrt(radius * radius - std::pow(2 * y - count - 1, 2));
        const std::string number = std::to_string(at);
        picture.fvNodes.push_back({x, y, names[at], "node " + number, static_cast<int>(at % 2)});
        const double weight = 1 + static_cast<double>(at % 9);
        picture.fvLinks.push_back({x, y, radius, (count + 1) / 2, weight, at < names.size() / 2 ? 0 : 1,
                                   static_cast<int>(at), "link " + number});
    }
    return picture;
}

const Line& LineOf(const Element& element) { return std::get<Line>(element.fvShapes.front().fForm); }

TEST(NetworkLayout, NamesStandClearWithinTheWidthAndMarksInOneOrder) {
    for (const int count : {0, 1, 2, 8, 9, 14, 15, 40, 200}) {
        for (const char* kind : {"short", "equal", "long", "unbroken"}) {
            SCOPED_TRACE(std::to_string(count) + " " + kind);
            NetworkPicture picture = Network(test::NamesOf(kind, count));
            const auto marks = static_cast<std::size_t>(2 * count + 1);
            test::CheckLayouts([&](double width) { return LayOutContent(picture, width); }, marks);
            picture.fHistogram = Bins();
            test::CheckLayouts([&](double width) { return LayOutContent(picture, width); }, marks + 10);
        }
    }
}

// A node of a diagram of its own, and what its name becomes: at the desk in one line, on a phone in several.
const struct {
    const char* fName;
    std::vector<std::string> fvDesk;
    std::vector<std::string> fvPhone;
} kNames[] = {
    {"days", {"days"}, {"days"}},
    {"[nitro=0.2]*[Variety=Golden Rain]",
     {"[nitro=0.2]*[Variety=Golden Rain]"},
     {"[nitro=0.2]*", "[Variety=Golden", "Rain]"}},
    {"[Variety=Marvellous]*days", {"[Variety=Marvellous]*days"}, {"[Variety=", "Marvellous]*days"}},
    {"one name that is so long that it can be shown in part only",
     {"one name that is so long that it can\u2026"},
     {"one name that is", "so long that it", "can\u2026"}},
};

TEST(NetworkLayout, NamesBreakOnAPhoneRatherThanEndEarly) {
    for (const auto& check : kNames) {
        SCOPED_TRACE(check.fName);
        NetworkPicture picture = Network({check.fName}, "");
        picture.fHistogram = Bins();
        const auto wordsOfNode = [&picture](double width) {
            const Scene scene = LayOutContent(picture, width);
            return test::WordsOf({0, 0, {*test::MarksOf(scene)[1]}});
        };
        EXPECT_EQ(wordsOfNode(kWidths[0]), check.fvDesk);
        EXPECT_EQ(wordsOfNode(kWidths[1]), check.fvPhone);
    }
}

TEST(NetworkLayout, NamesThatBeginAlikeAreToldApart) {
    for (const double width : kWidths) {
        const Scene scene = LayOutContent(Network(test::NamesOf("unbroken", 30)), width);
        std::set<std::vector<std::string>> shown;
        for (const Element* mark : test::MarksOf(scene)) {
            if (mark->fTip.starts_with("node")) shown.insert(test::WordsOf({0, 0, {*mark}}));
        }
        EXPECT_EQ(shown.size(), 30U) << width;
    }
}

TEST(NetworkLayout, LinksLeadToTheEdgeOfTheBoxInTheWidthAndInkOfTheirClass) {
    const Scene scene = LayOutContent(Network(test::NamesOf("short", 18)), kWidths[0]);
    const std::vector<const Element*> marks = test::MarksOf(scene);
    const auto& box = std::get<Rectangle>(marks.back()->fvShapes.front().fForm);
    for (std::size_t at = 0; at < 18; ++at) {
        const auto& paint = marks[at]->fvShapes.front().fPaint;
        EXPECT_GE(LineOf(*marks[at]).fTo.fX, box.fAt.fX);
        EXPECT_LE(LineOf(*marks[at]).fTo.fX, box.fAt.fX + 5);
        EXPECT_NEAR(LineOf(*marks[at]).fTo.fY, box.fAt.fY + box.fHeight / 2, 5);
        EXPECT_DOUBLE_EQ(paint.fStrokeWidth, 1 + 6 * static_cast<double>(at % 9) / 8);
        EXPECT_EQ(paint.fStroke, at < 9 ? Ink::Level : Ink::SetOff);
        EXPECT_EQ(paint.fDash, at < 9 ? Dash::Solid : Dash::Long);
    }
}

TEST(NetworkLayout, WeightsBeyondTheScaleAreOfItsEnds) {
    NetworkPicture picture = Network({"a", "b"});
    picture.fvLinks[0].fWeight = -1e300;
    picture.fvLinks[1].fWeight = 1e300;
    const Scene scene = LayOutContent(picture, kWidths[0]);
    EXPECT_EQ(scene.fvElements[0].fvShapes.front().fPaint.fStrokeWidth, 1);
    EXPECT_EQ(scene.fvElements[1].fvShapes.front().fPaint.fStrokeWidth, 7);
}

// The target's box is as large as what it holds.
const struct {
    const char* fName;
    const char* fTarget;
    bool fHasHistogram;
    double fLeastWidth;
    double fMostWidth;
} kBoxes[] = {
    {"nothing", "", false, 0, 0},
    {"a short name", "y", false, 20, 40},
    {"a long name", "Average reaction time of all that took part in milliseconds", false, 150, 200},
    {"a histogram", "", true, 150, 200},
    {"both", "y", true, 150, 200},
};

TEST(NetworkLayout, ThereIsNoEmptyBox) {
    for (const auto& check : kBoxes) {
        for (const int count : {0, 3}) {
            SCOPED_TRACE(check.fName);
            NetworkPicture picture = Network(test::NamesOf("short", count), check.fTarget);
            if (check.fHasHistogram) picture.fHistogram = Bins();
            const Scene scene = LayOutContent(picture, kWidths[0]);
            double width = 0;
            for (const Element* mark : test::MarksOf(scene)) {
                const auto* box = std::get_if<Rectangle>(&mark->fvShapes.front().fForm);
                if (box != nullptr && mark->fTip == "target") width = box->fWidth;
            }
            EXPECT_GE(width, check.fLeastWidth);
            EXPECT_LE(width, check.fMostWidth);
        }
    }
}

TEST(NetworkLayout, KeysBringTogetherWhatBelongsTogether) {
    const Scene scene = LayOutContent(Network(test::NamesOf("short", 4)), kWidths[1]);
    using Tips = std::vector<std::string>;
    Element node;
    node.fvKeys = {2};
    EXPECT_EQ(test::TipsWithKeysOf(scene, node), Tips({"link 2", "node 2"}));
    EXPECT_EQ(test::TipsWithKeysOf(scene, *test::EntryOf(scene, "Negative")), Tips({"link 2", "link 3"}));
    EXPECT_EQ(test::TipsWithKeysOf(scene, *test::EntryOf(scene, "Categorical")), Tips({"node 1", "node 3"}));
    EXPECT_EQ(test::TipsWithKeysOf(scene, *test::EntryOf(scene, "w4")), Tips({"link 3"}));
    EXPECT_NE(test::EntryOf(scene, "w1"), nullptr);
    EXPECT_EQ(test::EntryOf(scene, "w3"), nullptr);
    EXPECT_NE(test::EntryOf(scene, "w9"), nullptr);
}

TEST(NetworkLayout, ClassesWithoutALegendHaveNoKey) {
    NetworkPicture picture = Network({"a"});
    picture.fSigns.fHasLegend = false;
    picture.fTypes.fHasLegend = false;
    picture.fWeights.fvEntries.clear();
    const Scene scene = LayOutContent(picture, kWidths[0]);
    for (const Element* mark : test::MarksOf(scene)) {
        EXPECT_LE(mark->fvKeys.size(), 1U) << mark->fTip;
    }
}

NetworkPicture Scattered(std::size_t count, double x, double y) {
    NetworkPicture picture = Network(test::NamesOf("short", static_cast<int>(count)));
    for (std::size_t at = 0; at < count; ++at) {
        const double sign = at % 2 == 0 ? 1 : -1;
        picture.fvNodes[at].fX = picture.fvLinks[at].fX = sign * x;
        picture.fvNodes[at].fY = picture.fvLinks[at].fY = sign * y;
    }
    return picture;
}

TEST(NetworkLayout, StandsWhatNoModelSends) {
    NetworkPicture noTarget = Scattered(20, 1e300, 8e307);
    noTarget.fTarget.fX.reset();
    noTarget.fTarget.fY.reset();
    NetworkPicture farTarget = Scattered(20, 0, 0);
    farTarget.fTarget.fX = -8e307;
    farTarget.fTarget.fY = 8e307;
    farTarget.fLowX = -8e307;
    NetworkPicture noNodes = Scattered(3, 0, 0);
    noNodes.fvNodes.clear();
    for (NetworkLink& link : noNodes.fvLinks) link.fNode.reset();
    for (const NetworkPicture& picture : {Scattered(20, 1e300, -1e300), Scattered(9, 0, 0), Scattered(20000, 0, 3),
                                          Scattered(20000, 5, 5e-324), noTarget, farTarget, noNodes}) {
        for (const double width : {708.0, 328.0, 10.0}) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_LE(scene.fWidth, std::max(width, 400.0));
            EXPECT_LE(scene.fHeight, 20000);
            EXPECT_TRUE(test::AreMarksInside(scene));
            EXPECT_TRUE(width == 10 || test::FaultsOf(scene).empty());
        }
    }
}

}  // namespace
}  // namespace hierfit
