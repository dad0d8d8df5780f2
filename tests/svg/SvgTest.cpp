#include "report/charts/svg/Svg.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace hierfit::report::charts {

namespace {

using std::string_literals::operator""s;

const Paint kInk{.fFill = Ink::Ink};
const Paint kLine{.fStroke = Ink::Grid};
const Paint kThick{.fStroke = Ink::SetOff, .fStrokeWidth = 2.5, .fDash = Dash::Long, .fOpacity = 0.25};

Shape MakeDot(double x, Ink ink = Ink::Level) { return {{.fFill = ink}, Circle{{x, 2}, 3}}; }

Shape MakeWords(const std::string& words, Anchor anchor = Anchor::Start) {
    return {kInk, Text{words, {10, 20.25}, {}, anchor, 0}};
}

/// What stands inside the element.
std::string Print(const std::vector<Element>& elements, Names names = Names::Marks) {
    std::string svg;
    AppendSvg(svg, {100, 50, elements}, names, "");
    svg.resize(svg.rfind("</svg>"));
    return svg.substr(svg.find('>') + 1);
}

TEST(Svg, PrintsPlacesThatAreNoneAndPathsInTheShortestForm) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::string ink = R"( class="f1" fill="#1b1f24")";
    const std::string line = R"(<path class="s4" stroke="#e7eaee" d=)";
    const std::pair<Shape, std::string> cases[] = {
        {{kInk, Rectangle{{-0.04, 0.04}, -3, 4.05, 2}},
         "<rect" + ink + R"( x="0" y="0" width="0" height="4.1" rx="2"/>)"},
        {{kInk, Circle{{-0.95, nan}, infinity}}, "<circle" + ink + R"( cx="-1" cy="0" r="10000000"/>)"},
        {{kThick, Line{{1, 1}, {-4, 1}}},
         R"(<path class="s10" stroke="#d55e00" stroke-opacity=".25" stroke-width="2.5" stroke-dasharray="7 3" d="M1 1h-5"/>)"},
        {{kLine, Path{{{{0, 0}, {1.1, 2}, {0, 2.9}}, {}, {{9, -9}}}, true}}, line + R"("M0 0l1.1 2l-1.1 0.9zM9-9z"/>)"},
        {{kLine, Path{{{{0.4, 0.6}, {9.4, 5.5}}, {{2.49, -0.5}}}, false, true}}, line + R"("M0 1l9 5M2-1"/>)"},
        // Parts that begin near where the one before ended, which is where a closed one began.
        {{kLine, Path{{{{100, 200}, {100, 250}, {150, 250}}, {{101, 202}, {101, 300}}, {{99, 301}}}, true}},
         line + R"("M100 200v50h50zm1 2v98m-2 1z"/>)"},
    };
    for (const auto& [shape, svg] : cases) EXPECT_EQ(Print({{{shape}, "", {}, false}}), svg);
}

TEST(Svg, SharesWhatStandsSideBySide) {
    const Element dots{{MakeDot(1), MakeDot(2)}, "", {}, false};
    const Element mark{{MakeDot(3)}, "A\nMean = \"1\"", {4, 12}, false};
    const Shape line{kLine, Line{{0, 0}, {0, 9}}};
    const Shape thick{kThick, Line{{0, 0}, {0, 9}}};
    const std::string group = R"(<g class="f11" fill="#0072b2">)";
    const std::string both = R"(<circle cx="1" cy="2" r="3"/><circle cx="2" cy="2" r="3"/>)";
    const std::string lone = R"(class="f11" fill="#0072b2" )";
    const std::tuple<std::vector<Element>, std::string, std::string> cases[] = {
        // One paint of decoration and marks, over the edges of elements.
        {{dots, mark},
         group + both + R"(<circle data-k="4 12" cx="3" cy="2" r="3"><title>A)" +
             "\nMean = &quot;1&quot;</title></circle></g>",
         group + both + R"(<circle class="m" cx="3" cy="2" r="3"/></g>)"},
        // A mark of several shapes is one element, whether they look alike or not.
        {{{{MakeDot(1), MakeDot(2)}, "B", {}, false}},
         group + "<title>B</title>" + both + "</g>",
         R"(<g class="m f11" fill="#0072b2">)" + both + "</g>"},
        {{{{line, MakeDot(1)}, "B", {}, false}},
         R"(<g><title>B</title><path class="s4" stroke="#e7eaee" d="M0 0v9"/><circle )" + lone +
             R"(cx="1" cy="2" r="3"/></g>)",
         R"(<g class="m"><path class="s4" stroke="#e7eaee" d="M0 0v9"/><circle )" + lone +
             R"(cx="1" cy="2" r="3"/></g>)"},
        // Lines are one path, unless they would be fainter where they cross.
        {{{{line, line}, "", {}, false}}, R"(<path class="s4" stroke="#e7eaee" d="M0 0v9M0 0v9"/>)", ""},
        {{{{thick, thick}, "", {}, false}},
         R"(<g class="s10" stroke="#d55e00" stroke-opacity=".25" stroke-width="2.5" stroke-dasharray="7 3"><path d="M0 0v9"/><path d="M0 0v9"/></g>)",
         ""},
        // What has no name keeps its keys in each layout.
        {{{{MakeDot(1)}, "", {7, 8}, true}}, "<circle " + lone + R"(data-e="7 8" cx="1" cy="2" r="3"/>)", ""},
        {{{{}, "Nothing to see", {}, false}}, "<g><title>Nothing to see</title></g>", R"(<g class="m"></g>)"},
    };
    for (const auto& [elements, svg, withoutNames] : cases) {
        EXPECT_EQ(Print(elements), svg);
        EXPECT_EQ(Print(elements, Names::None), withoutNames.empty() ? svg : withoutNames);
    }
}

TEST(Svg, SetsWordsAsTheyRead) {
    const std::string rtl = R"( direction="rtl")";
    const std::pair<Shape, std::string> cases[] = {
        {MakeWords("\u05D0 (1)"), R"( text-anchor="end")" + rtl},
        {MakeWords("12 \u0628 a", Anchor::End), rtl},
        {MakeWords("\u05D0", Anchor::Middle), R"( text-anchor="middle")" + rtl},
        {MakeWords("a \u05D0", Anchor::End), R"( text-anchor="end")"},
    };
    for (const auto& [shape, attributes] : cases) {
        const std::string svg = Print({{{shape}, "", {}, false}});
        EXPECT_NE(svg.find(R"(fill="#1b1f24")" + attributes + R"( x="10")"), std::string::npos) << svg;
    }
    for (const char* words : {" a", "a ", "a  b", "a\tb\n", " "}) {
        EXPECT_NE(Print({{{MakeWords(words)}, "", {}, false}}).find(R"( xml:space="preserve">)"), std::string::npos);
    }
    EXPECT_EQ(Print({{{MakeWords("a b c")}, "", {}, false}}).find("xml:space"), std::string::npos);
}

TEST(Svg, KeepsTextsTexts) {
    const std::pair<std::string, std::string> cases[] = {
        {"</text><script>alert(1)</script>", "&lt;/text&gt;&lt;script&gt;alert(1)&lt;/script&gt;"},
        {"\"]]>&amp;<!--", "&quot;]]&gt;&amp;amp;&lt;!--"},
        {"\0\x1B\x7F"s, "␀␛␡"},
        {"\uFFFE\u202E\u2066\xC2\x85\xED\xA0\x80 \xF0\x9F", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD \uFFFD\uFFFD"},
    };
    for (const auto& [words, escaped] : cases) {
        const std::string svg = Print({{{MakeWords(words)}, words, {}, false}});
        EXPECT_NE(svg.find(">" + escaped + "</text>"), std::string::npos) << svg;
        EXPECT_NE(svg.find("<title>" + escaped + "</title>"), std::string::npos) << svg;
        const std::string file = MakeSvgFile({}, words, words);
        EXPECT_NE(file.find("<title>" + escaped + "</title><desc>" + escaped + "</desc>"), std::string::npos) << file;
    }
}

std::size_t CountOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST(Svg, SaysOnceWhatACrowdHasInCommon) {
    const std::tuple<int, std::string, bool, bool> cases[] = {
        {2000, "Mean", false, false},
        {2001, "Mean", true, false},
        {2000, std::string(150, 'n'), false, true},
        {2001, std::string(150, 'n'), true, true},
    };
    for (const auto& [marks, name, areKeysShared, areTipsShared] : cases) {
        std::vector<Element> elements;
        for (int i = 0; i < marks; ++i) {
            const Paint paint{.fFill = i % 2 == 0 ? Ink::Level : Ink::SetOff};
            const std::string tip = "Dose: low\n" + name + ": " + std::to_string(i);
            elements.push_back({{{paint, Path{{{{0, 0}, {9, 1}}}, true}}}, tip, {i % 2, 2, 10 + i}, false});
        }
        std::ranges::stable_sort(elements, {}, [](const Element& element) { return element.fvKeys.front(); });
        const std::string svg = Print(elements);
        const std::string phone = Print(elements, Names::None);
        const std::string own = " data-k=\"" + std::string(areKeysShared ? "" : "1 2 ") + "13\"";
        EXPECT_EQ(CountOf(own, svg), 1u) << svg.substr(0, 300);
        const std::string shared = " fill=\"#0072b2\" data-k=\"0 2\">";
        for (const std::string& each : {svg, phone})
            EXPECT_EQ(CountOf(shared, each), areKeysShared ? 1u : 0u) << each.substr(0, 300);
        const std::string form = "<desc>Dose: low\n" + name + ": \u2026</desc>";
        EXPECT_EQ(CountOf(form, svg), areTipsShared ? 2u : 0u) << svg.substr(0, 300);
        EXPECT_EQ(CountOf("<title>" + (areTipsShared ? "" : "Dose: low\n" + name + ": ") + "3</title>", svg), 1u);
        EXPECT_EQ(CountOf("<desc>", phone) + CountOf("<title>", phone), 0u);
    }
}

TEST(Svg, IsShortAndQuickForManyMarks) {
    const auto makeScene = [](Ink stroke, double lastRadius) {
        Scene scene{700, 700, {}};
        for (int i = 0; i < 10'000; ++i) {
            Shape dot{{.fFill = Ink::Level, .fStroke = stroke, .fOpacity = 0.5}, Circle{{i * 0.07, 123.4}, 4.5}};
            scene.fvElements.push_back({{dot}, "Reaction: 1234.56\nPredicted Value: 123.56", {}, false});
        }
        std::get<Circle>(scene.fvElements.back().fvShapes[0].fForm).fRadius = lastRadius;
        return scene;
    };
    const auto begin = std::chrono::steady_clock::now();
    std::string svg;
    AppendSvg(svg, makeScene(Ink::None, 4.5), Names::Marks, "");
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    EXPECT_LT(svg.size(), 900'000u);
    EXPECT_LT(seconds.count(), 0.5);  // a hundredth of that by itself; quadratic ways take longer
    // Dots of one round pen; circles where they are of several sizes, or have an edge.
    EXPECT_NE(svg.find(R"( stroke-width="9" stroke-linecap="round"><path d="M0 123.4z"><title>Rea)"),
              std::string::npos);
    for (const Scene& scene : {makeScene(Ink::None, 5), makeScene(Ink::Paper, 4.5)}) {
        svg.clear();
        AppendSvg(svg, scene, Names::None, "");
        EXPECT_EQ(svg.find("<path"), std::string::npos) << svg.substr(0, 500);
    }
}

}  // namespace

}  // namespace hierfit::report::charts
