#include <cmath>

#include "host/ConfidenceLevel.h"
#include "tests/chart/ChartRun.h"
#include "tests/chart/picture/PictureFaults.h"

namespace hierfit::chart {
namespace {

using document::LevelsPicture;
using Levels = std::vector<std::vector<document::ChartValue>>;
using Texts = std::vector<std::string>;

/// A chart of means, or of contrasts, of all combinations of levels.
Sample Crossed(const Levels& levels, bool isContrast = false) {
    const Texts factors(levels.size(), "F");
    const std::vector<SampleMean> means = CrossedMeans(levels, 5);
    return isContrast ? ContrastSample(factors, means, 5) : MeansSample(factors, means);
}

TEST(PictureTest, OfNothingHoldsToItsWord) {
    Sample samples[] = {Crossed({{"a"}}),      Crossed({{"a"}}, true),
                        PairwiseSample(3, {}), DiagramSample(3, true),
                        ScatterSample(3),      HistogramSample({"normal", {}, {}}, {1.0}, {1.0})};
    for (Sample& sample : samples) {
        sample.fvData.clear();
        Make(sample);
    }
    const std::string hostile = "</script> x_text[0] \"'\\ ]]> \x01 \xff" + std::string(10000, 'w');
    Make(MeansSample({hostile, "", "\n"}, CrossedMeans({{hostile, "  two  blanks "}, {hostile, ""}, {"\n\n"}}, 1e-7)));
}

TEST(LevelsPictureTest, MakesAnAxisOfNumbersOnlyOfNumbers) {
    using Numbers = std::vector<double>;
    const std::pair<std::vector<document::ChartValue>, Numbers> cases[] = {
        {{1.0, 2.5, 4.0}, {1, 2.5, 4}}, {{"a", "b"}, {}}, {{1.0, "b"}, {}}, {{1.0}, {}}, {{1e305, 3.0, 2.0}, {3, 2}}};
    for (const auto& [levels, numbers] : cases) {
        Sample sample = Crossed({levels});
        MakeLinear(sample);
        EXPECT_EQ(Draw<LevelsPicture>(sample).fvNumbers, numbers);
        EXPECT_EQ(Make(sample).fvNotes.at(0).starts_with("Band"), !numbers.empty());
    }
}

TEST(LevelsPictureTest, TakesLimitsThatCanBePlaced) {
    using Limits = std::pair<std::optional<double>, std::optional<double>>;
    const std::pair<Span, Limits> cases[] = {
        {{}, {}}, {{3, 9}, {3, 9}}, {{9, 3}, {3, 9}}, {{HUGE_VAL, 7}, {{}, 7}}, {{std::nan(""), -1e305}, {}}};
    for (const auto& [span, limits] : cases) {
        Sample sample = Crossed({{"a"}});
        sample.fSpecification.fPlot.fY = span;
        const document::PictureAxis axis = Draw<LevelsPicture>(sample).fValues;
        EXPECT_EQ(Limits(axis.fLow, axis.fHigh), limits);
    }
}

TEST(LevelsPictureTest, LeavesOutWhatHasNoPlaceAndKeepsPointsWithoutRanges) {
    const std::vector<SampleMean> means = {{{"a"}, 1.0, 0.5, 1.5}, {{"b"}, 1.0, {}, 1.5}, {{"c"}, 1.0, 0.5, {}},
                                           {{"d"}, {}, 0.5, 1.5},  {{{}}, 1.0, 0.5, 1.5}, {{"e"}, "text", 0.5, 1.5},
                                           {{"f"}, 1.0, 1.5, 0.5}, {{"g"}, 1e305, {}, {}}};
    const document::Picture picture = Make(MeansSample({"A"}, means));
    const auto& marks = std::get<LevelsPicture>(picture.fContent).fvMarks;
    ASSERT_EQ(marks.size(), 4U);
    const std::vector<bool> hasRange = {true, false, false, true};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(marks[i].fLow && marks[i].fHigh, hasRange[i]) << i;
        EXPECT_EQ(marks[i].fTip.find("Interval") != std::string::npos, hasRange[i]) << i;
    }
    EXPECT_LT(*marks[3].fLow, *marks[3].fHigh);
    EXPECT_EQ(picture.fvTables[0].fvRows[1], (Texts{"b", "1.00", "", ""}));
}

TEST(LevelsPictureTest, TakesFromEitherRowOfAPairWhatBothHaveInCommon) {
    Sample means = MeansSample({"A"}, {{{"a"}, 1.5, 1.0, 2.0}});
    ValuesOf(means, "source0", "target")[1] = {};
    ValuesOf(means, "source0", "effect1")[0] = {};
    means.fSpecification.fvPopups = {{"target", {"Mean", ""}}};
    EXPECT_EQ(Draw<LevelsPicture>(means).fvMarks[0].fTip, "A: a\nMean: 1.50\nConfidence Interval: 1.00 to 2.00");
    Sample contrasts = ContrastSample({"A"}, {{{"a"}, 1.5, 1.0, 2.0}}, 1);
    ValuesOf(contrasts, "source", "tooltip")[0] = {};
    const std::string tip = Draw<LevelsPicture>(contrasts).fvMarks[0].fTip;
    EXPECT_TRUE(tip.starts_with("Average reaction time (ms) of a is higher\n")) << tip;
    ValuesOf(contrasts, "source", "value")[1] = {};
    EXPECT_TRUE(Draw<LevelsPicture>(contrasts).fvMarks.empty()) << "the first row has the line's height";
}

TEST(LevelsPictureTest, SaysWhatItsAxisAndItsWhiskersShow) {
    const std::string line = "confidence interval of the difference from the line, drawn at the mean";
    const std::tuple<bool, double, std::string> cases[] = {
        {false, 0, "Bars: confidence intervals of the means"},
        {true, 0.999, "Bars: 99.9% " + line},
        {true, 1.5, "Bars: " + line},
    };
    for (const auto& [isContrast, level, note] : cases) {
        const test::ChartRun run;
        NoteConfidenceLevel(level);
        const document::Picture picture = Make(Crossed({{"a"}}, isContrast));
        EXPECT_EQ(picture.fvNotes, Texts{note});
        EXPECT_EQ(std::get<LevelsPicture>(picture.fContent).fValues.fTitle,
                  isContrast ? "Estimated Mean" : "Estimated Mean of Average reaction time (ms)");
    }
    EXPECT_TRUE(Make(MeansSample({"A"}, {{{"a"}, 1.0, {}, {}}})).fvNotes.empty());
    Sample own = Crossed({{"a"}});
    own.fSpecification.fvAxisTitles = {{false, {"Milliseconds", ""}}};
    EXPECT_EQ(Draw<LevelsPicture>(own).fValues.fTitle, "Milliseconds");
}

TEST(LevelsPictureTest, ExplainsOnlyWhatOccurs) {
    Sample sample = Crossed({{"a", "b"}, {"s", "t", "u"}, {"p", "q"}});
    auto& means = ValuesOf(sample, "source0", "target");
    for (std::size_t row = 0; row < means.size(); ++row) {
        const bool isOfT = ValuesOf(sample, "source0", "effect2")[row] == document::ChartValue("t");
        if (isOfT || ValuesOf(sample, "source0", "effect3")[row] == document::ChartValue("p")) means[row] = {};
    }
    const auto picture = Draw<LevelsPicture>(sample);
    EXPECT_EQ(picture.fSeries.fvWords, (Texts{"s", "u"}));
    EXPECT_EQ(picture.fPanels.fvAcross, Texts{"F = q"});
    EXPECT_EQ(picture.fvMarks.back().fSeries, 1);
    EXPECT_EQ(picture.fvMarks.back().fPanel.fAcross, 0);
    EXPECT_TRUE(picture.fSeries.fHasLegend);
    const std::vector<std::tuple<int, std::string, std::string>> contrasts = {{1, "Significant", ""},
                                                                              {3, "Significant", "Not Significant"}};
    for (const auto& [levels, setOff, rest] : contrasts) {
        const auto emphasis = Draw<LevelsPicture>(Crossed({Named("A", levels)}, true)).fEmphasis;
        EXPECT_EQ(emphasis, (document::PictureEmphasis{setOff, rest, true}));
    }
}

TEST(LevelsPictureTest, DrawsOfVeryManyMarksSomeAndSaysSo) {
    const document::Picture picture = Make(MeansSample({"A"}, CrossedMeans({Named("A", 30000)}, 5)));
    const auto& marks = std::get<LevelsPicture>(picture.fContent).fvMarks;
    ASSERT_EQ(marks.size(), 20000U);
    EXPECT_EQ(marks.back().fLevel, 29999);
    for (std::size_t at = 1; at < marks.size(); ++at) ASSERT_LE(marks[at].fLevel - marks[at - 1].fLevel, 2) << at;
    EXPECT_EQ(picture.fvNotes.back(), "20000 of 30000 marks are drawn.");
    EXPECT_EQ(picture.fvTables[0].fvRows.size(), 30000U);
}

TEST(LevelsPictureTest, ArrangesPanels) {
    const auto grid = Draw<LevelsPicture>(Crossed({{"a"}, {"b", "c"}, {"d", "e"}}, true)).fPanels;
    EXPECT_EQ(grid, (document::PicturePanels{{"F = b", "F = c"}, {"F = d", "F = e"}, 0}));
    Sample column = Crossed({{"a"}, {"b"}, {"c", "d"}});
    EXPECT_EQ(Draw<LevelsPicture>(column).fPanels.fAbreast, 3) << "as the specification wraps them";
    column.fSpecification.fFaceting->fvAlongColumns = {false};
    EXPECT_EQ(Draw<LevelsPicture>(column).fPanels.fAbreast, 1);
    Sample swapped = Crossed({{"a"}, {"b", "c"}, {"d", "e"}}, true);
    swapped.fSpecification.fFaceting->fvAlongColumns = {false, true};
    swapped.fSpecification.fPlot.fvLineGuides = {{1, "facet1!=&quot;b&quot;||facet2!=&quot;e&quot;"}};
    const auto picture = Draw<LevelsPicture>(swapped);
    EXPECT_EQ(picture.fPanels.fvAcross, (Texts{"F = d", "F = e"}));
    EXPECT_EQ(picture.fvGuides.at(0).fPanel, (document::PanelPlace{1, 0}));
}

/// Heights of the lines in the panels of a chart whose facet variables have these levels.
std::vector<double> HeightsOf(Levels facets, const std::vector<LineGuide>& guides) {
    facets.insert(facets.begin(), {"a"});
    Sample sample = Crossed(facets, true);
    sample.fSpecification.fPlot.fvLineGuides = guides;
    std::vector<double> heights;
    for (const auto& guide : Draw<LevelsPicture>(sample).fvGuides) heights.push_back(guide.fValue);
    return heights;
}

TEST(LineGuides, AreDrawnWhereTheConditionNamesThePanel) {
    const std::vector<std::tuple<Levels, std::string, std::size_t>> cases = {
        {{}, "false", 1},
        {{}, "true", 0},
        {{{"u", "v"}}, "facet1!=&quot;v&quot;", 1},
        {{{"u", "v"}}, "facet2!=&quot;v&quot;", 0},
        {{{"u", "v"}}, "facet1!=&quot;v&quot; ", 0},
        {{{"u", "v"}}, "false", 2},
        {{{1.0, 2.0}}, "facet1!=&quot;1&quot;", 1},
        {{{1.0, 2.0}}, "facet1!=&quot;1.0&quot;", 1},
        {{{1.0, 2.0}}, "facet1!=&quot;1.0x&quot;", 0},
        {{{"1.0", "2"}}, "facet1!=&quot;1&quot;", 1},
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
