#include <algorithm>
#include <cmath>
#include <set>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/LayOut.h"
#include "tests/pictures/SceneChecks.h"

namespace hierfit {
namespace {

using namespace document;
using report::charts::Element;
using report::charts::kDeskWidth;
using report::charts::kPhoneWidth;
using report::charts::LayOutContent;
using report::charts::Scene;
using report::charts::Text;
using Strings = std::vector<std::string>;

Strings NamesOf(const std::string& kind, int count) {
    Strings names;
    for (int at = 1; at <= count; ++at) {
        const std::string number = std::to_string(at);
        if (kind == "equal") names.emplace_back("Golden Rain");
        if (kind == "short") names.push_back(number);
        if (kind == "long") names.push_back("[nitro=0." + number + "]*[Variety=Golden Rain of the north]");
        if (kind == "unbroken") names.push_back(std::string(300, 'W') + number);
    }
    return names;
}

/// Every node is joined with the next; the first line of each panel is set off.
CirclePicture Circles(const Strings& names, int across = 0, int down = 0) {
    CirclePicture picture;
    picture.fEmphasis = {"Significant", "Not significant", true};
    for (int panel = 0; panel < across; ++panel) {
        picture.fPanels.fvAcross.push_back("Variety of oats = number " + std::to_string(panel));
    }
    for (int row = 0; row < down; ++row) picture.fPanels.fvDown.push_back("Phosphate = " + std::to_string(row));
    for (int panel = 0; panel < std::max(across, 1) * std::max(down, 1); ++panel) {
        CirclePanel& made = picture.fvPanels.emplace_back();
        made.fPlace = {panel % std::max(across, 1), panel / std::max(across, 1)};
        for (std::size_t at = 0; at < names.size(); ++at) {
            const std::string number = std::to_string(panel) + "." + std::to_string(at);
            made.fvNodes.push_back({names[at], "node " + number});
            if (at > 0) made.fvLinks.push_back({static_cast<int>(at) - 1, static_cast<int>(at), 0.5, at == 1, number});
        }
    }
    return picture;
}

/// Nodes on an arc left of the target, as diagrams of models have them; weights 1 to 9, and the second half negative.
NetworkPicture Network(const Strings& names, bool hasBins = false) {
    NetworkPicture picture;
    const auto count = static_cast<double>(names.size());
    const double radius = std::max(count, 1.0);
    picture.fHighX = radius * 4 / 3;
    picture.fTarget = {radius, (count + 1) / 2, "Yield of peas", "target"};
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
    if (hasBins) picture.fHistogram.emplace().fvBins.resize(10, {0, 20, 3, "bin"});
    return picture;
}

TEST(DiagramLayout, NamesStandClearWithinTheWidthAndMarksInOneOrder) {
    for (const int count : {0, 1, 2, 8, 9, 11, 13, 14, 15, 40, 200}) {
        for (const char* kind : {"short", "equal", "long", "unbroken"}) {
            SCOPED_TRACE(std::to_string(count) + " " + kind);
            const auto ofNetwork = static_cast<std::size_t>(2 * count + 1);
            for (const auto& [across, down] : {std::pair(0, 0), std::pair(4, 0), std::pair(2, 3), std::pair(4, 2)}) {
                const CirclePicture circles = Circles(NamesOf(kind, count), across, down);
                const std::size_t marks = circles.fvPanels.size() * (count == 0 ? 0 : ofNetwork - 2);
                test::CheckLayouts([&](double width) { return LayOutContent(circles, width); }, marks);
            }
            for (const bool hasBins : {false, true}) {
                const NetworkPicture network = Network(NamesOf(kind, count), hasBins);
                test::CheckLayouts([&](double width) { return LayOutContent(network, width); },
                                   ofNetwork + (hasBins ? 10 : 0));
            }
        }
    }
}

TEST(DiagramLayout, NamesThatBeginAlikeAreToldApart) {
    for (const double width : {kDeskWidth, kPhoneWidth}) {
        for (const std::size_t count : {9, 30, 40}) {
            const Strings names = NamesOf("unbroken", static_cast<int>(count));
            for (const Scene& scene : {LayOutContent(Circles(names), width), LayOutContent(Network(names), width)}) {
                std::set<Strings> shown;
                for (const Element* mark : test::MarksOf(scene)) {
                    if (mark->fTip.starts_with("node")) shown.insert(test::WordsOf({0, 0, {*mark}}));
                }
                EXPECT_EQ(shown.size(), count) << width;
            }
        }
    }
}

/// The entry of a legend, by its words.
const Element* EntryOf(const Scene& scene, const std::string& words) {
    const auto isIt = [&](const Element& element) {
        return element.fIsEntry && test::WordsOf({0, 0, {element}}) == Strings{words};
    };
    const auto found = std::ranges::find_if(scene.fvElements, isIt);
    return found == scene.fvElements.end() ? nullptr : &*found;
}

/// The tips of the marks that have the key of the legend's entry of these words, or of the node of this tip.
Strings TipsWithKeyOf(const Scene& scene, const std::string& name) {
    const Element* entry = EntryOf(scene, name);
    const auto marks = test::MarksOf(scene);
    const int key = (entry != nullptr ? entry : *std::ranges::find(marks, name, &Element::fTip))->fvKeys.front();
    Strings tips;
    for (const Element* mark : marks) {
        if (std::ranges::find(mark->fvKeys, key) != mark->fvKeys.end()) tips.push_back(mark->fTip);
    }
    return tips;
}

TEST(DiagramLayout, KeysBringTogetherWhatBelongsTogether) {
    const Scene circles = LayOutContent(Circles(NamesOf("short", 3), 2), kDeskWidth);
    const Scene network = LayOutContent(Network(NamesOf("short", 4)), kPhoneWidth);
    const std::tuple<const Scene*, const char*, Strings> cases[] = {
        {&circles, "node 1.1", {"1.2", "1.1", "node 1.1"}},
        {&circles, "Significant", {"0.1", "1.1"}},
        {&circles, "Not significant", {"0.2", "1.2"}},
        {&network, "node 2", {"link 2", "node 2"}},
        {&network, "Negative", {"link 2", "link 3"}},
        {&network, "Categorical", {"node 1", "node 3"}},
        {&network, "w4", {"link 3"}},
    };
    for (const auto& [scene, name, tips] : cases) EXPECT_EQ(TipsWithKeyOf(*scene, name), tips) << name;
    EXPECT_EQ(EntryOf(network, "w3"), nullptr) << "six of nine";
    EXPECT_NE(EntryOf(network, "w9"), nullptr);
    NetworkPicture bare = Network({"a"});
    bare.fSigns.fHasLegend = bare.fTypes.fHasLegend = false;
    bare.fWeights.fvEntries.clear();
    const Scene scene = LayOutContent(bare, kDeskWidth);
    for (const Element* mark : test::MarksOf(scene)) EXPECT_LE(mark->fvKeys.size(), 1U);
}

TEST(CircleLayout, NamesTurnBeyondFourteenAndAreLeftOutOnlyWhereTheyWouldCollide) {
    for (const auto& [count, width, shown, isTurned] :
         {std::tuple(14, 708.0, 14, false), std::tuple(14, 328.0, 14, false), std::tuple(15, 328.0, 15, true),
          std::tuple(40, 328.0, 40, true), std::tuple(100, 708.0, 100, true), std::tuple(200, 708.0, 100, true)}) {
        Strings names = NamesOf("short", count);
        for (std::string& name : names) name.insert(0, "District ");
        std::pair<int, bool> found;
        const Scene scene = LayOutContent(Circles(names), width);
        for (const Element* mark : test::MarksOf(scene)) {
            if (!mark->fTip.starts_with("node") || mark->fvShapes.size() < 2) continue;
            ++found.first;
            found.second = found.second || std::get<Text>(mark->fvShapes[1].fForm).fTurn != 0;
        }
        EXPECT_EQ(found, std::pair(shown, isTurned)) << count;
    }
}

TEST(CircleLayout, TheRestIsFainterTheMoreLinesThereAre) {
    double opacity = 1;
    for (const int count : {3, 150, 300, 1000}) {
        const Scene scene = LayOutContent(Circles(NamesOf("short", count)), kDeskWidth);
        const double now = test::MarksOf(scene).front()->fvShapes.front().fPaint.fOpacity;
        EXPECT_LT(now, opacity);
        EXPECT_GT(now, 0.1);
        opacity = now;
    }
}

TEST(CircleLayout, TheLegendHoldsWhatOccurs) {
    CirclePicture picture = Circles({"a", "b"});
    EXPECT_EQ(EntryOf(LayOutContent(picture, kDeskWidth), "Not significant"), nullptr);
    picture.fEmphasis.fHasLegend = false;
    EXPECT_EQ(EntryOf(LayOutContent(picture, kDeskWidth), "Significant"), nullptr);
}

TEST(CircleLayout, LinksOfACrowdComeByTheirPaint) {
    CirclePicture picture = Circles(NamesOf("short", 3));
    for (int at = 0; at < 2001; ++at)
        picture.fvPanels[0].fvLinks.push_back({at % 3, (at + 1) % 3, at % 100 / 100.0, false, "x"});
    std::size_t runs = 0;
    report::charts::Paint last;
    const Scene scene = LayOutContent(picture, kDeskWidth);
    for (const Element* mark : test::MarksOf(scene)) {
        if (mark->fTip == "x" && mark->fvShapes.front().fPaint != last) ++runs;
        last = mark->fvShapes.front().fPaint;
    }
    EXPECT_EQ(runs, 8u);  // widths of 0.5 to 4 pixels in steps of a half
}

TEST(NetworkLayout, WeightsBeyondTheScaleAreOfItsEndsAndABoxOfNothingIsNone) {
    NetworkPicture picture = Network({"a", "b"});
    picture.fvLinks[0].fWeight = -1e300;
    picture.fvLinks[1].fWeight = 1e300;
    picture.fTarget.fName.clear();
    const Scene scene = LayOutContent(picture, kDeskWidth);
    EXPECT_EQ(scene.fvElements[0].fvShapes.front().fPaint.fStrokeWidth, 1);
    EXPECT_EQ(scene.fvElements[1].fvShapes.front().fPaint.fStrokeWidth, 7);
    EXPECT_EQ(test::TipsOf(scene).back(), "node 1");
}

NetworkPicture Scattered(int count, double x, double y) {
    NetworkPicture picture = Network(NamesOf("short", count));
    for (std::size_t at = 0; at < picture.fvNodes.size(); ++at) {
        const double sign = at % 2 == 0 ? 1 : -1;
        picture.fvNodes[at].fX = picture.fvLinks[at].fX = sign * x;
        picture.fvNodes[at].fY = picture.fvLinks[at].fY = sign * y;
    }
    return picture;
}

TEST(DiagramLayout, StandsWhatNoModelSends) {
    CirclePicture wide = Circles({"a", "b", "c"});
    for (int at = 0; at < 20000; ++at) wide.fvPanels[0].fvLinks.push_back({at % 3, (at + 1) % 3, 1e300, false, "x"});
    NetworkPicture noTarget = Scattered(20, 1e300, 8e307);
    noTarget.fTarget.fX.reset();
    NetworkPicture farTarget = Scattered(20, 0, 0);
    farTarget.fTarget.fX = farTarget.fLowX = -8e307;
    farTarget.fTarget.fY = 8e307;
    NetworkPicture noNodes = Scattered(3, 0, 0);
    noNodes.fvNodes.clear();
    for (NetworkLink& link : noNodes.fvLinks) link.fNode.reset();
    const auto expectSound = [](const auto& picture) {
        for (const double width : {kDeskWidth, kPhoneWidth}) {
            const Scene scene = LayOutContent(picture, width);
            EXPECT_EQ(test::FaultsOf(scene), Strings());
            EXPECT_LE(scene.fWidth, width);
        }
    };
    for (const CirclePicture& picture : {wide, Circles({}, 3), Circles(NamesOf("short", 20000))}) expectSound(picture);
    for (const NetworkPicture& picture : {Scattered(20, 1e300, -1e300), Scattered(9, 0, 0), Scattered(20000, 0, 3),
                                          Scattered(20000, 5, 5e-324), noTarget, farTarget, noNodes}) {
        expectSound(picture);
    }
}

}  // namespace
}  // namespace hierfit
