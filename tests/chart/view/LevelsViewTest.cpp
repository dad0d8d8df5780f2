#include <algorithm>
#include <cmath>
#include <functional>
#include <nlohmann/json.hpp>

#include "host/chart/view/parts/ViewExpressions.h"
#include "tests/chart/view/LevelsSamples.h"

namespace hierfit::chart {
namespace {

using Json = nlohmann::ordered_json;
using document::ChartValue;

/// The view without its look.
Json ViewOf(const Sample& sample) {
    Json view = Json::parse(sample.Make().fJson);
    view.erase("config");
    return view;
}

/// Calls for every object within a view.
void ForObjects(const Json& view, const std::function<void(const Json&)>& call) {
    if (view.is_object()) call(view);
    if (!view.is_structured()) return;
    for (const Json& part : view) ForObjects(part, call);
}

const Json& Find(const Json& view, const std::string& key) {
    static const Json none;
    const Json* found = &none;
    ForObjects(view, [&](const Json& each) {
        if (found->is_null() && each.contains(key)) found = &each[key];
    });
    return *found;
}

std::vector<std::string> MarksOf(const Json& view) {
    std::vector<std::string> marks;
    ForObjects(view, [&](const Json& each) {
        if (each.contains("mark")) marks.push_back(each["mark"]["type"]);
    });
    return marks;
}

const Json& ValuesOf(const Json& view) { return Find(view, "values"); }

Json ParamOf(const Json& view, const std::string& name) {
    for (const Json& param : view.value("params", Json::array())) {
        if (param["name"] == name) return param["value"];
    }
    return {};
}

TEST(LevelsView, HoldsNoExpressionButThoseOfTheList) {
    for (const Sample& sample : LevelsSamples()) {
        const Json view = ViewOf(sample);
        ForObjects(view, [&](const Json& each) {
            for (const char* key : {"expr", "labelExpr", "filter"}) {
                if (!each.contains(key)) continue;
                const auto& all = expression::kAll;
                EXPECT_NE(std::find(all.begin(), all.end(), each[key].get<std::string>()), all.end()) << each[key];
            }
        });
    }
}

TEST(LevelsView, FillsATableWithOneRowForEachMean) {
    for (const Sample& sample : LevelsSamples()) {
        const View view = sample.Make();
        const Json json = Json::parse(view.fJson);
        std::size_t means = 0;
        for (const Json& value : ValuesOf(json)) means += value.contains("m") ? 1 : 0;
        EXPECT_EQ(view.fShown.fvTables.at(0).fvRows.size(), means) << sample.fName;
        for (const auto& row : view.fShown.fvTables.at(0).fvRows)
            ASSERT_EQ(row.size(), view.fShown.fvTables.at(0).fvColumns.size());
        EXPECT_EQ(json["description"].get<std::string>().substr(0, 7), "Chart: ") << sample.fName;
    }
}

TEST(LevelsView, DrawsWhatTheLevelsBear) {
    const std::vector<ChartValue> three = {"a", "b", "c"};
    struct Case {
        std::string fName;
        Sample fSample;
        std::vector<std::string> fvMarks;
        std::string fLevelChannel;
        int fAngle;
    };
    const std::string rule = "rule";
    const std::string point = "point";
    std::vector<Case> cases;
    cases.push_back(
        {"one factor", MeansSample("", {"A"}, CrossedMeans({three}, 5)), {rule, point, point, point}, "x", 0});
    cases.push_back({"few series",
                     MeansSample("", {"A", "B"}, CrossedMeans({three, Named("S", 8)}, 5)),
                     {"line", rule, point, point, point},
                     "x",
                     0});
    cases.push_back({"many series",
                     MeansSample("", {"A", "B"}, CrossedMeans({three, Named("S", 9)}, 5)),
                     {rule, point, point, point},
                     "x",
                     0});
    cases.push_back({"long words",
                     MeansSample("", {"A"}, CrossedMeans({Named("District", 40)}, 5)),
                     {rule, point, point, point},
                     "y",
                     0});
    cases.push_back({"more series than fit",
                     MeansSample("", {"A", "B"}, CrossedMeans({Named("S", 10), Named("S", 10)}, 5)),
                     {rule, point, point, point},
                     "y",
                     0});
    cases.push_back({"contrasts",
                     ContrastSample("", {"A"}, CrossedMeans({three}, 5), 5),
                     {rule, rule, rule, point, point, point},
                     "x",
                     0});
    cases.push_back({"contrasts of long words",
                     ContrastSample("", {"A"}, CrossedMeans({Named("District", 15)}, 5), 5),
                     {rule, rule, rule, point, point, point},
                     "x",
                     -40});
    cases.push_back({"many contrasts",
                     ContrastSample("", {"A"}, CrossedMeans({Named("District", 60)}, 5), 5),
                     {rule, rule, rule, point, point, point},
                     "x",
                     -90});
    for (const Case& each : cases) {
        const Json view = ViewOf(each.fSample);
        EXPECT_EQ(MarksOf(view), each.fvMarks) << each.fName;
        Json channel;
        ForObjects(view, [&](const Json& part) {
            if (part.contains(each.fLevelChannel) && part[each.fLevelChannel].value("field", "") == "at")
                channel = part[each.fLevelChannel];
        });
        ASSERT_FALSE(channel.is_null()) << each.fName;
        EXPECT_EQ(channel["axis"]["labelAngle"], each.fAngle) << each.fName;
        EXPECT_EQ(channel["axis"]["values"].size(), ParamOf(view, "x_text").size()) << each.fName;
    }
}

TEST(LevelsView, DodgesColorsSymmetricallyWithinASlot) {
    for (int colors = 1; colors < 12; ++colors) {
        const Json view = ViewOf(MeansSample("", {"A", "B"}, CrossedMeans({{"a", "b"}, Named("S", colors)}, 5)));
        double sum = 0;
        for (const Json& value : ValuesOf(view)) {
            const double at = value["at"];
            sum += at;
            EXPECT_LT(std::abs(at - std::round(at)), 0.45) << colors;
        }
        EXPECT_NEAR(sum, colors, 1e-4);  // half of the means stand about 0, half about 1
    }
}

TEST(LevelsView, MakesAnAxisOfNumbersOnlyOfNumbers) {
    struct Case {
        std::vector<ChartValue> fvLevels;
        bool fIsLinear;
    };
    for (const Case& each :
         std::vector<Case>{{{1.0, 2.5, 4.0}, true}, {{"a", "b"}, false}, {{1.0, "b"}, false}, {{1.0}, false}}) {
        Sample sample = MeansSample("", {"A"}, CrossedMeans({each.fvLevels}, 5));
        MakeLinear(sample);
        const Json view = ViewOf(sample);
        const std::vector<std::string> marks = MarksOf(view);
        EXPECT_EQ(std::count(marks.begin(), marks.end(), "area"), each.fIsLinear ? 1 : 0);
        EXPECT_EQ(ParamOf(view, "x_text").is_null(), each.fIsLinear);
    }
}

TEST(LevelsView, HasAnAxisOfSomeLengthForAnyMeans) {
    struct Case {
        double fMean;
        Span fSpan;
        Json fDomain;
    };
    const std::vector<Case> cases = {{7, {}, {6.5, 7.5}},
                                     {1e17, {}, {1e17 - 1e11, 1e17 + 1e11}},
                                     {7, {3, 3}, {2.5, 3.5}},
                                     {7, {7, {}}, {6.5, 7.5}},
                                     {7, {{}, 7}, {6.5, 7.5}},
                                     {7, {9, {}}, {8.5, 9.5}},
                                     {1e305, {4, {}}, {3.5, 4.5}},
                                     {7, {HUGE_VAL, {}}, {6.5, 7.5}},
                                     {7, {3, 9}, {}}};
    for (const Case& each : cases) {
        Sample sample = MeansSample("", {"A"}, {{{"a"}, each.fMean, {}, {}}});
        sample.fSpecification.fPlot.fY = each.fSpan;
        const Json view = ViewOf(sample);
        Json scale;
        ForObjects(view, [&](const Json& part) {
            if (part.value("field", Json()) == "m") scale = part["scale"];
        });
        EXPECT_EQ(scale.value("domain", Json()), each.fDomain) << each.fMean;
        EXPECT_EQ(ValuesOf(view).size(), each.fMean > 1e300 ? 0U : 1U);
    }
}

TEST(LevelsView, LeavesOutWhatHasNoPlaceAndKeepsPointsWithoutRanges) {
    const std::vector<SampleMean> means = {{{"a"}, 1.0, 0.5, 1.5}, {{"b"}, 1.0, {}, 1.5}, {{"c"}, 1.0, 0.5, {}},
                                           {{"d"}, {}, 0.5, 1.5},  {{{}}, 1.0, 0.5, 1.5}, {{"e"}, "text", 0.5, 1.5},
                                           {{"f"}, 1.0, 1.5, 0.5}};
    const Json view = ViewOf(MeansSample("", {"A"}, means));
    ASSERT_EQ(ValuesOf(view).size(), 4U);
    const std::vector<bool> hasRange = {true, false, false, true};
    for (std::size_t i = 0; i < 4; ++i) {
        const Json& value = ValuesOf(view)[i];
        EXPECT_EQ(value.contains("lo") && value.contains("hi"), hasRange[i]) << i;
        EXPECT_EQ(value["tip"].get<std::string>().find("Interval") != std::string::npos, hasRange[i]) << i;
    }
    EXPECT_LT(ValuesOf(view)[3]["lo"], ValuesOf(view)[3]["hi"]);
}

TEST(LevelsView, ArrangesPanels) {
    struct Case {
        int fPanels;
        int fColumns;
        bool fHasOwnAxes;
    };
    for (const Case& each :
         std::vector<Case>{{1, 1, true}, {3, 3, true}, {4, 3, true}, {6, 3, false}, {101, 3, true}}) {
        const Json view =
            ViewOf(MeansSample("", {"A", "B", "C"}, CrossedMeans({{"a"}, {"b"}, Named("C", each.fPanels)}, 5)));
        EXPECT_EQ(Find(view, "columns"), each.fColumns);
        EXPECT_EQ(view.contains("resolve"), each.fHasOwnAxes) << each.fPanels;
        EXPECT_EQ(ParamOf(view, "facet_text").size(), static_cast<std::size_t>(each.fPanels));
    }
    const Json grid = ViewOf(ContrastSample("", {"A", "B", "C"}, CrossedMeans({{"a"}, {"b", "c"}, {"d", "e"}}, 5), 5));
    EXPECT_EQ(Find(grid, "facet")["row"]["field"], "q");
    EXPECT_EQ(ParamOf(grid, "facet2_text"), (Json{"C = d", "C = e"}));
}

/// Heights of the lines in the panels of a chart whose facet variables have these levels.
std::vector<double> HeightsOf(const std::vector<std::vector<ChartValue>>& facets,
                              const std::vector<LineGuide>& guides) {
    std::vector<std::vector<ChartValue>> levels = facets;
    levels.insert(levels.begin(), {"a"});
    Sample sample = ContrastSample("", std::vector<std::string>(levels.size(), "F"), CrossedMeans(levels, 5), 5);
    sample.fSpecification.fPlot.fvLineGuides = guides;
    std::vector<double> heights;
    const Json view = ViewOf(sample);
    for (const Json& value : ValuesOf(view)) {
        if (value.contains("base")) heights.push_back(value["base"]);
    }
    return heights;
}

TEST(LineGuides, AreDrawnWhereTheConditionNamesThePanel) {
    struct Case {
        std::vector<std::vector<ChartValue>> fvFacets;
        std::string fUnless;
        std::size_t fLines;
    };
    const std::vector<Case> cases = {
        {{}, "false", 1},
        {{}, "", 1},
        {{}, "true", 0},
        {{{"u", "v"}}, "facet1!=&quot;v&quot;", 1},
        {{{"u", "v"}}, "facet1!=\"v\"", 1},
        {{{"u", "v"}}, "facet1!=&quot;w&quot;", 0},
        {{{"u", "v"}}, "facet2!=&quot;v&quot;", 0},
        {{{"u", "v"}}, "facet1!=&quot;v&quot; ", 0},
        {{{"u", "v"}}, "false", 2},
        {{{1.0, 2.0}}, "facet1!=&quot;1&quot;", 1},
        {{{1.0, 2.0}}, "facet1!=&quot;1.0&quot;", 1},
        {{{1.0, 2.0}}, "facet1!=&quot;1.0x&quot;", 0},
        {{{1e300, 2.0}}, "facet1!=&quot;1e+300&quot;", 1},
        {{{"u\"||facet2!=\"x"}}, "facet1!=&quot;u\"||facet2!=\"x&quot;", 1},
        {{{"u", "v"}, {"w", "x"}}, "facet1!=&quot;u&quot;||facet2!=&quot;x&quot;", 1},
        {{{1.0, "v"}, {2.0, "x"}}, "facet1!=&quot;1.00&quot;||facet2!=&quot;2.0&quot;", 1},
        {{{"u", "v"}, {"w", "x"}}, "facet1!=&quot;u&quot;", 0},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(HeightsOf(each.fvFacets, {{4.5, each.fUnless}}).size(), each.fLines) << each.fUnless;
    }
    EXPECT_EQ(HeightsOf({{"u", "v"}}, {{1, "facet1!=&quot;v&quot;"}, {2, "facet1!=&quot;u&quot;"}}),
              (std::vector<double>{2, 1}));
    EXPECT_TRUE(HeightsOf({}, {{std::numeric_limits<double>::infinity(), "false"}}).empty());
}

TEST(LevelsView, TellsWhatItShows) {
    Sample sample =
        MeansSample("", {"Arm", "Sex", "Visit"}, {{{"a", "f", 1.0}, 1.5, 1.0, {}}, {{"b", "f", 1.0}, 2.5, 2.0, 3.0}});
    sample.fSpecification.fvPopups = {{"effect1", {"Treatment arm", ""}}, {"target", {"Mean", ""}}};
    const View view = sample.Make();
    EXPECT_EQ(view.fShown.fSentence,
              "Chart: Means of Average reaction time (ms) by Arm * Sex * Visit. Points: 2, from 1.50 to 2.50.");
    const document::ChartTable& table = view.fShown.fvTables.at(0);
    EXPECT_EQ(table.fvColumns, (std::vector<std::string>{"Visit", "Arm", "Sex", "Mean", "Lower", "Upper"}));
    EXPECT_EQ(table.fKeys, 3);
    EXPECT_EQ(table.fvRows[1], (std::vector<std::string>{"1", "b", "f", "2.50", "2.00", "3.00"}));
    EXPECT_EQ(table.fvRows[0][4], "");
    const Json json = Json::parse(view.fJson);
    EXPECT_EQ(ValuesOf(json)[1]["tip"],
              "Treatment arm: b\nSex: f\nVisit = 1\nMean: 2.50\nConfidence Interval: 2.00 to 3.00");
}

}  // namespace
}  // namespace hierfit::chart
