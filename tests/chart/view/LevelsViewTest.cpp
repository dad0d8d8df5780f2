#include <cmath>
#include <functional>

#include "tests/chart/view/LevelsSamples.h"

namespace hierfit::chart {
namespace {

using Json = nlohmann::json;
using Levels = std::vector<std::vector<document::ChartValue>>;

/// The drawing within a view, with its texts by name.
Json ViewOf(const Sample& sample) {
    const Json view = sample.MakeJson();
    Json drawing = view.contains("concat") ? view["concat"][0] : view;
    Json texts = Json::object();
    for (const Json& param : view.value("params", Json::array())) texts[param["name"]] = param["value"];
    drawing.erase("config");
    drawing["params"] = texts;
    return drawing;
}

/// A chart of means, or of contrasts, of all combinations of levels.
Json CrossedView(const Levels& levels, bool isContrast = false) {
    const std::vector<std::string> factors(levels.size(), "F");
    const std::vector<SampleMean> means = CrossedMeans(levels, 5);
    return ViewOf(isContrast ? ContrastSample("", factors, means, 5) : MeansSample("", factors, means));
}

/// Calls for every object within a view.
void ForObjects(const Json& view, const std::function<void(const Json&)>& call) {
    if (view.is_object()) call(view);
    if (!view.is_structured()) return;
    for (const Json& part : view) ForObjects(part, call);
}

/// The channel that shows a field.
Json ChannelOf(const Json& view, const std::string& channel, const std::string& field) {
    Json found;
    ForObjects(view, [&](const Json& each) {
        if (each.contains(channel) && each[channel].value("field", "") == field) found = each[channel];
    });
    return found;
}

/// The kinds of all marks, from the back to the front.
std::string MarksOf(const Json& view) {
    std::string marks;
    ForObjects(view, [&](const Json& each) {
        if (each.contains("mark")) marks += each["mark"]["type"].get<std::string>() + " ";
    });
    return marks;
}

TEST(LevelsView, DrawsWhatTheLevelsBear) {
    const std::vector<document::ChartValue> three = {"a", "b", "c"};
    const std::string means = "rule point point point ";
    const std::string contrasts = "rule rule rule point point point ";
    const std::vector<std::tuple<bool, Levels, std::string, std::string, int>> cases = {
        {false, {three}, means, "x", 0},
        {false, {three, Named("S", 8)}, "line " + means, "x", 0},
        {false, {three, Named("S", 9)}, means, "x", 0},
        {false, {{"a", "b", "c", "d", "district_one district_two district_six"}}, means, "x", 0},
        {false, {{"a", "b", "c", "d", "district_one district_two district_six district_ten"}}, means, "y", 0},
        {false, {Named("District", 40)}, means, "y", 0},           // long words
        {false, {Named("S", 10), Named("S", 10)}, means, "y", 0},  // more series than fit
        {true, {three}, contrasts, "x", 0},
        {true, {Named("District", 15)}, contrasts, "x", -40},
        {true, {Named("District", 60)}, contrasts, "x", -90},
    };
    for (const auto& [isContrast, levels, marks, channel, angle] : cases) {
        const Json view = CrossedView(levels, isContrast);
        EXPECT_EQ(MarksOf(view), marks);
        Json axis = ChannelOf(view, channel, "at")["axis"];
        EXPECT_EQ(axis["labelAngle"], angle) << view;
        EXPECT_EQ(axis["values"].size(), view["params"]["x_text"].size());
    }
}

TEST(LevelsView, MakesAnAxisOfNumbersOnlyOfNumbers) {
    const std::pair<std::vector<document::ChartValue>, bool> cases[] = {
        {{1.0, 2.5, 4.0}, true}, {{"a", "b"}, false}, {{1.0, "b"}, false}, {{1.0}, false}};
    for (const auto& [levels, isLinear] : cases) {
        Sample sample = MeansSample("", {"A"}, CrossedMeans({levels}, 5));
        MakeLinear(sample);
        const Json view = ViewOf(sample);
        EXPECT_EQ(MarksOf(view), isLinear ? "area line point " : "rule point point point ");
        EXPECT_EQ(view["params"].contains("x_text"), !isLinear);
    }
}

TEST(LevelsView, HasAnAxisOfSomeLengthForAnyMeans) {
    const std::vector<std::tuple<double, Span, Json>> cases = {
        {7, {}, {6.5, 7.5}},          {1e17, {}, {1e17 - 1e11, 1e17 + 1e11}},
        {7, {3, 3}, {2.5, 3.5}},      {7, {7, {}}, {6.5, 7.5}},
        {7, {{}, 7}, {6.5, 7.5}},     {7, {9, {}}, {8.5, 9.5}},
        {1e305, {4, {}}, {3.5, 4.5}}, {7, {HUGE_VAL, {}}, {6.5, 7.5}},
        {7, {3, 9}, {3, 9}}};
    for (const auto& [mean, span, domain] : cases) {
        Sample sample = MeansSample("", {"A"}, {{{"a"}, mean, {}, {}}});
        sample.fSpecification.fPlot.fY = span;
        const Json view = ViewOf(sample);
        Json scale = ChannelOf(view, "y", "m")["scale"];
        EXPECT_EQ(scale.contains("domain") ? scale["domain"] : Json({scale["domainMin"], scale["domainMax"]}), domain);
        EXPECT_EQ(view["data"]["values"].size(), mean > 1e300 ? 0U : 1U);
    }
    Sample contrast = ContrastSample("", {"A"}, {{{"a"}, 7.0, {}, {}}}, 7);
    contrast.fSpecification.fPlot.fvLineGuides = {{9, "false"}};
    EXPECT_FALSE(ChannelOf(ViewOf(contrast), "y", "m")["scale"].contains("domain")) << "it holds the line";
}

TEST(LevelsView, LeavesOutWhatHasNoPlaceAndKeepsPointsWithoutRanges) {
    const std::vector<SampleMean> means = {{{"a"}, 1.0, 0.5, 1.5}, {{"b"}, 1.0, {}, 1.5}, {{"c"}, 1.0, 0.5, {}},
                                           {{"d"}, {}, 0.5, 1.5},  {{{}}, 1.0, 0.5, 1.5}, {{"e"}, "text", 0.5, 1.5},
                                           {{"f"}, 1.0, 1.5, 0.5}};
    const Sample sample = MeansSample("", {"A"}, means);
    const Json values = ViewOf(sample)["data"]["values"];
    ASSERT_EQ(values.size(), 4U);
    const std::vector<bool> hasRange = {true, false, false, true};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(values[i].contains("lo") && values[i].contains("hi"), hasRange[i]) << i;
        EXPECT_EQ(values[i]["tip"].get<std::string>().find("Interval") != std::string::npos, hasRange[i]) << i;
    }
    EXPECT_LT(values[3]["lo"], values[3]["hi"]);
    EXPECT_EQ(sample.Make().fShown.fvTables[0].fvRows[1], (std::vector<std::string>{"b", "1.00", "", ""}));
}

TEST(LevelsView, TakesFromEitherRowOfAPairWhatBothHaveInCommon) {
    Sample means = MeansSample("", {"A"}, {{{"a"}, 1.5, 1.0, 2.0}});
    ValuesOf(means, "source0", "target")[1] = {};
    ValuesOf(means, "source0", "effect1")[0] = {};
    means.fSpecification.fvPopups = {{"target", {"Mean", ""}}};
    EXPECT_EQ(ViewOf(means)["data"]["values"][0]["tip"], "A: a\nMean: 1.50\nConfidence Interval: 1.00 to 2.00");
    Sample contrasts = ContrastSample("", {"A"}, {{{"a"}, 1.5, 1.0, 2.0}}, 1);
    ValuesOf(contrasts, "source", "tooltip")[0] = {};
    const std::string tip = ViewOf(contrasts)["data"]["values"][1]["tip"];
    EXPECT_TRUE(tip.starts_with("Average reaction time (ms) of a is higher\n")) << tip;
}

TEST(LevelsView, ArrangesPanels) {
    const std::vector<std::tuple<int, int, bool>> cases = {
        {1, 1, true}, {3, 3, true}, {4, 3, true}, {6, 3, false}, {101, 3, true}};
    for (const auto& [panels, columns, hasOwnAxes] : cases) {
        const Json view = CrossedView({{"a"}, {"b"}, Named("C", panels)});
        EXPECT_EQ(view["columns"], columns);
        EXPECT_EQ(view.contains("resolve"), hasOwnAxes) << panels;
        EXPECT_EQ(view["params"]["facet_text"].size(), static_cast<std::size_t>(panels));
    }
    const Json grid = CrossedView({{"a"}, {"b", "c"}, {"d", "e"}}, true);
    EXPECT_EQ(grid["facet"]["row"]["field"], "q");
    EXPECT_EQ(grid["params"]["facet2_text"], (Json{"F = d", "F = e"}));
}

TEST(LevelsView, SpellsCharactersAsSavedDocumentsDo) {
    const std::pair<std::string, std::string> cases[] = {
        {"a\x7Fz", "a\\u007fz"},
        {"a\u0080\u009F\u00A0z", "a\\u0080\\u009f\u00A0z"},
        {"a\"\\z", "a\\\"\\\\z"},
        {"a\xC2\xFFz", "a\uFFFD\uFFFDz"},
    };
    for (const auto& [level, spelled] : cases) {
        const std::string view = MeansSample("", {"A"}, {{{level}, 1.0, {}, {}}}).Make().fJson;
        EXPECT_NE(view.find("[\"" + spelled + "\"]"), std::string::npos) << spelled << view;
    }
}

TEST(LevelsView, ArrangesPanelsDownwardsFirst) {
    Sample column = MeansSample("", {"A", "B", "C"}, CrossedMeans({{"a"}, {"b"}, {"c", "d"}}, 5));
    column.fSpecification.fFaceting->fvAlongColumns = {false};
    EXPECT_EQ(ViewOf(column)["columns"], 1);
    Sample grid = ContrastSample("", {"A", "B", "C"}, CrossedMeans({{"a"}, {"b", "c"}, {"d", "e"}}, 5), 5);
    grid.fSpecification.fFaceting->fvAlongColumns = {false, true};
    Json view = ViewOf(grid);
    EXPECT_EQ(view["params"]["facet_text"], (Json{"C = d", "C = e"}));
    EXPECT_EQ(view["data"]["values"].size(), 8U) << "a mean and a line in each of four panels";
}

/// Heights of the lines in the panels of a chart whose facet variables have these levels.
std::vector<double> HeightsOf(Levels facets, const std::vector<LineGuide>& guides) {
    facets.insert(facets.begin(), {"a"});
    Sample sample = ContrastSample("", std::vector<std::string>(facets.size(), "F"), CrossedMeans(facets, 5), 5);
    sample.fSpecification.fPlot.fvLineGuides = guides;
    std::vector<double> heights;
    const Json view = ViewOf(sample);
    for (const Json& value : view["data"]["values"]) {
        if (value.contains("base")) heights.push_back(value["base"]);
    }
    return heights;
}

TEST(LineGuides, AreDrawnWhereTheConditionNamesThePanel) {
    const std::vector<std::tuple<Levels, std::string, std::size_t>> cases = {
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
        {{{"1.0", "2"}}, "facet1!=&quot;1&quot;", 1},
        {{{1e300, 2.0}}, "facet1!=&quot;1e+300&quot;", 1},
        {{{"u\"||facet2!=\"x"}}, "facet1!=&quot;u\"||facet2!=\"x&quot;", 1},
        {{{"u", "v"}, {"w", "x"}}, "facet1!=&quot;u&quot;||facet2!=&quot;x&quot;", 1},
        {{{1.0, "v"}, {2.0, "x"}}, "facet1!=&quot;1.00&quot;||facet2!=&quot;2.0&quot;", 1},
        {{{"u", "v"}, {"w", "x"}}, "facet1!=&quot;u&quot;", 0},
    };
    for (const auto& [facets, unless, lines] : cases) {
        EXPECT_EQ(HeightsOf(facets, {{4.5, unless}}).size(), lines) << unless;
    }
    EXPECT_EQ(HeightsOf({{"u", "v"}}, {{1, "facet1!=&quot;v&quot;"}, {2, "facet1!=&quot;u&quot;"}}),
              (std::vector<double>{2, 1}));
    EXPECT_TRUE(HeightsOf({}, {{std::numeric_limits<double>::infinity(), "false"}}).empty());
}

}  // namespace
}  // namespace hierfit::chart
