#include <gtest/gtest.h>

#include "tests/hierfit/ChartCase.h"

namespace hierfit::test {
namespace {

constexpr const char* kMissing = "__MISSING__";

// ---- Means ----

void TopMeans(ChartStage&, HFITChartOutput& charts) { charts.BuildTopMeansCharts(); }

Coordinates ColumnOf(const std::string& field, const Strings& values) { return {3, field, "", values}; }

EstimateData MeansOf(std::vector<Coordinates> factors, const Strings& means, const Strings& lower,
                     const Strings& upper) {
    EstimateData data;
    data.fvFactorCoords = std::move(factors);
    data.fMean.fvValues = means;
    data.fCILower.fvValues = lower;
    data.fCIUpper.fvValues = upper;
    return data;
}

const ChartCase kTopMeans[] = {
    {"one factor, one of an unknown effect, and two factors",
     [](ChartStage& stage) {
         *stage.fStats.CreateEmmeansEstimates() = {
             MeansOf({ColumnOf("a", {"1", "x1"})}, {"5", kMissing}, {"4"}, {"6", "7"}),
             MeansOf({ColumnOf("t", {"1"})}, {"1"}, {"1"}, {"1"}),
             MeansOf({ColumnOf("b", {"lo"}), ColumnOf("a", {"2"})}, {"1"}, {"0"}, {"2"})};
     },
     TopMeans,
     R"(
heading Estimated Marginal Means for Top Significant Fixed Effects
chart GLMMEmMeans Yield by a
source0.effect1: 1 1 'x1' 'x1'
source0.effect2: - - - -
source0.target: 5 5 0 0
source0.confMargin: 4 6 0 7
effect1[0]: setLabel(a) setKESTVariable(a) addRelabels()
chart GLMMEmMeans Yield by Level * a
source0.effect1: 'lo' 'lo'
source0.effect2: 2 2
source0.target: 1 1
source0.confMargin: 0 2
effect1[0]: setLabel(Level) setKESTVariable(b) addRelabels()
effect2[0]: setLabel(a) setKESTVariable(a) addRelabels()
)",
     {"[Yield]", "title=\"effect1Label\"", "<legend id=\"legend\">"},
     {},
     "a chart of means is left out: its first factor begins no fixed effect\n"},
    {"twelve records",
     [](ChartStage& stage) {
         stage.fStats.CreateEmmeansEstimates()->assign(12, MeansOf({ColumnOf("a", {})}, {}, {}, {}));
     },
     [](ChartStage& stage, HFITChartOutput& charts) {
         TopMeans(stage, charts);
         const auto& heading = std::get<document::Heading>(stage.fRun.GetDocument().fItems.front().fContent);
         EXPECT_EQ(heading.fItems.size(), 11U);
     },
     nullptr,
     {"[Yield]"},
     {"<legend", "YAxisLabel"}},
    {"no records", [](ChartStage& stage) { stage.fStats.CreateEmmeansEstimates(); }, TopMeans, R"(
heading Estimated Marginal Means for Top Significant Fixed Effects
)"},
    {"no record list", [](ChartStage&) {}, TopMeans, ""},
};

TEST(TopMeansCharts, AreSent) { CheckCharts(kTopMeans); }

EmmeansData BlockOf(EstimateData estimates) {
    EmmeansData block;
    block.fEstimates = std::move(estimates);
    return block;
}

/// A build step for a chart of one block.
template <class Operation>
auto Of(Operation makeBlock, void (HFITChartOutput::*build)(const EmmeansData&)) {
    return [=](ChartStage& stage, HFITChartOutput& charts) { (charts.*build)(makeBlock(stage)); };
}

constexpr auto kCustom = &HFITChartOutput::BuildCustomEffectsChart;

const ChartCase kCustomEffects[] = {
    {"one factor, limits missing here and there",
     Nothing,
     Of(
         [](ChartStage& stage) {
             EmmeansData block = BlockOf(MeansOf({ColumnOf("x", {"1", "2", "3", "4"})}, {"5", kMissing, "6", "7"},
                                                 {"4", "1", kMissing, "6"}, {"6", "1", "8", ""}));
             block.fvLabels = {{"x", stage.Value("x", "2.345")}, {"n", stage.Value("n", "7")}};
             return block;
         },
         kCustom),
     R"(
chart GLMMCustomEffects Estimated Means: Custom Effects
source_0.targetValue: 5 5 - - 6 6 7 7
source_0.effect1: 1 1 - - 3 3 4 4
source_0.effect2: '' '' - - '' '' '' ''
source_0.effect3: '' '' - - '' '' '' ''
source_0.confMargin: 4 6 - - 8 8 6 -
effect1[0]: setLabel(Dose) setCategorical(false)
)",
     {"width=\"99%\"", "<title>Estimates</title>", "[Dose]", "[Estimated Mean]",
      "[Continuous predictors fixed at x = 2.35, n = 7]"},
     {"<color", "<legend id=\"legend\">", "<faceting", "<facetLayout"}},
    {"three factors",
     Nothing,
     Of(
         [](ChartStage&) {
             return BlockOf(
                 MeansOf({ColumnOf("a", {"1"}), ColumnOf("t", {"2"}), ColumnOf("b", {"hi"})}, {"5"}, {"4"}, {"6"}));
         },
         kCustom),
     R"(
chart GLMMCustomEffects Estimated Means: Custom Effects
source_0.targetValue: 5 5
source_0.effect1: 1 1
source_0.effect2: 2 2
source_0.effect3: 'hi' 'hi'
source_0.confMargin: 4 6
effect1[0]: setLabel(a) setCategorical(true) setKESTVariable(a) addRelabels()
effect2[0]: setLabel(t) setKESTVariable(t) addRelabels()
effect3[0]: setLabel(Level) setKESTVariable(b) addRelabels() setFormatBasedOnKESTVariable(b) SetFormatPrefix(Level = )
)",
     {"width=\"75%\"", "<color", "<faceting", "<legend id=\"legend\">", "<footnote><![CDATA[]]></footnote>"}},
    {"two factors",
     Nothing,
     Of(
         [](ChartStage&) {
             return BlockOf(MeansOf({ColumnOf("a", {"1"}), ColumnOf("b", {"hi"})}, {"5"}, {"4"}, {"6"}));
         },
         kCustom),
     nullptr,
     {"75%", "<color", "<legend id=\"legend\">"},
     {"<faceting"}},
    {"refused", Nothing,
     Of(
         [](ChartStage&) {
             EmmeansData block = BlockOf(MeansOf({ColumnOf("a", {"1"})}, {"5"}, {"4"}, {"6"}));
             block.fvWarningList = {{"kGLMM_C19_1", {}}, {"kGLMM_C20", {}}};
             return block;
         },
         kCustom),
     ""},
};

TEST(CustomEffectsChart, IsSent) { CheckCharts(kCustomEffects); }

// ---- Contrasts ----

EmmeansData ContrastsOf(int kind, std::vector<Coordinates> factors, const Strings& estimates, const Strings& sigs) {
    EmmeansData block;
    block.fvOverallTests.resize(1);
    block.fContrasts.fContrastKind = kind;
    block.fContrasts.fAdjustedSigLevel = 0.05;
    block.fContrasts.fvFactorCoords = std::move(factors);
    block.fContrasts.fContrastEstimate.fvValues = estimates;
    block.fContrasts.fAdjustedSig.fvValues = sigs;
    block.fContrasts.fCILower.fvValues = Strings(sigs.size(), "-1");
    block.fContrasts.fCIUpper.fvValues = Strings(sigs.size(), "1");
    return block;
}

constexpr auto kContrast = &HFITChartOutput::BuildContrastChart;

EmmeansData Pairs() {
    return ContrastsOf(ContrastKind::PAIRWISE, {ColumnOf("a", {"1", "1", "2"}), ColumnOf("a", {"02", "3", "3"})},
                       {"1", "-1", "x"}, {kMissing, "1", "0.05"});
}

EmmeansData PairsInPanels() {
    return ContrastsOf(ContrastKind::PAIRWISE,
                       {ColumnOf("a", {"0"}), ColumnOf("x", {"5"}), ColumnOf("b", {"lo"}), ColumnOf("b", {"hi"})},
                       {"-2"}, {"0"});
}

EmmeansData Deviations() {
    EmmeansData block = ContrastsOf(ContrastKind::DEVIATION, {ColumnOf("a", {"1", "2", "4"}), ColumnOf("a", {})},
                                    {"-1", "1", "0"}, {"0.01", "0.05", "0"});
    block.fEstimates = MeansOf({ColumnOf("a", {"1", "2", "1"})}, {"9", "11.5", "77"}, {}, {});
    return block;
}

/// The means have their columns in another order than the contrasts.
EmmeansData SimpleInPanels() {
    EmmeansData block =
        ContrastsOf(ContrastKind::SIMPLE,
                    {ColumnOf("b", {"hi", "lo", "hi"}), ColumnOf("a", {"2", "2", "3"}), ColumnOf("a", {"1", "1", "1"})},
                    {"2", "-4", "0"}, {"0.01", kMissing, "0.5"});
    block.fEstimates =
        MeansOf({ColumnOf("a", {"2", "2", "3"}), ColumnOf("b", {"hi", "lo", "hi"})}, {"5", "6", "3"}, {}, {});
    return block;
}

template <class Change>
auto Changed(EmmeansData (*makeBlock)(), Change change) {
    return Of(
        [=](ChartStage& stage) {
            EmmeansData block = makeBlock();
            change(stage, block);
            return block;
        },
        kContrast);
}

auto Plain(EmmeansData (*makeBlock)()) {
    return Changed(makeBlock, [](ChartStage&, EmmeansData&) {});
}

const ChartCase kContrastCharts[] = {
    {"pairs with a missing, a full and a strict significance",
     Nothing,
     Plain(Pairs),
     R"(
chart GLMMPairwiseContrasts.viztemplate Pairwise Contrasts
nodeSource_1.node: 3 2 1 2
nodeSource_1.facet1: '' '' '' ''
nodeSource_1.facet2: '' '' '' ''
edgeSource_1.from: 2 3 3
edgeSource_1.to: 1 1 2
edgeSource_1.weight: - 1.797693135e+308 1.108033241
edgeSource_1.weightInPopup: - 1 0.05
edgeSource_1.type: 1 0 0
edgeSource_1.facet1: '' '' ''
edgeSource_1.facet2: '' '' ''
edgeSource_1.tooltip: 'Yield: two > one' 'Yield: one ~ 3' 'Yield: 3 ~ two'
node[0]: setLabel(a) setKESTVariable(a) addRelabel(1,one) addRelabel(2,two)
type[0]: addRelabel(0,Not Significant) addRelabel(1,Significant)
from[0]: addRelabel(1,one) addRelabel(2,two)
to[0]: addRelabel(1,one) addRelabel(2,two)
)",
     {"[Pairwise Contrasts]",
      "[Sequential Sidak significance adjust 0.05\nConfidence interval bounds are approximate.]", "[Target: Yield]"},
     {"faceting", "facetLayout"}},
    {"pairs of texts in panels of two variables",
     Nothing,
     Plain(PairsInPanels),
     R"(
chart GLMMPairwiseContrasts.viztemplate Pairwise Contrasts
nodeSource_1.node: '05lo' '05hi'
nodeSource_1.facet1: 0 0
nodeSource_1.facet2: 5 5
edgeSource_1.from: '05hi'
edgeSource_1.to: '05lo'
edgeSource_1.weight: 1
edgeSource_1.weightInPopup: 0
edgeSource_1.type: 1
edgeSource_1.facet1: 0
edgeSource_1.facet2: 5
edgeSource_1.tooltip: 'Yield: lo > hi'
node[0]: setLabel(Level) setKESTVariable(b) addRelabel(5lo,Low)
type[0]: addRelabel(0,Not Significant) addRelabel(1,Significant)
facet1[0]: setLabel(a) setKESTVariable(a) addRelabels()
facet1[1]: setLabel(a) setKESTVariable(a) addRelabels()
facet2[0]: setLabel(Dose) setKESTVariable(x) addRelabels()
facet2[1]: setLabel(Dose) setKESTVariable(x) addRelabels()
from[0]: addRelabel(5lo,Low)
to[0]: addRelabel(5lo,Low)
)",
     {"\"facet1\"", "\"facet2\"", "depth=\"2\""}},
    {"pairs in panels of one variable",
     Nothing,
     Changed(PairsInPanels,
             [](ChartStage&, EmmeansData& block) {
                 block.fContrasts.fvFactorCoords.erase(block.fContrasts.fvFactorCoords.begin());
             }),
     nullptr,
     {"\"facet1\"", "depth=\"1\""},
     {"\"facet2\"", "depth=\"2\""}},
    {"deviations, one without a mean",
     Nothing,
     Plain(Deviations),
     R"(
chart GLMMSimpleContrasts Deviation Contrasts
source.value: 10 9 10 11.5
source.category: 1 1 2 2
source.type: 1 1 0 0
source.facet1: 0 0 0 0
source.facet2: 0 0 0 0
source.confMargin: 9 11 9 11
source.tooltip: 'Yield: one down' 'Yield: one down' 'Yield: two same' 'Yield: two same'
category[0]: setLabel(a) setKESTVariable(a) addRelabels()
)",
     {"y=\"10\"><unless><![CDATA[false]]>", "[Deviation Contrasts]", "[Sequential Sidak", "[Horizontal Line Deviation]",
      "slot=\"confMargin\" name=\"confMargin\" source=\"source\" role=\"measure\"", "slot=\"tooltip\""},
     {"whenText", "faceting", "facetLayout"},
     "chart \"Deviation Contrasts\": a level is left out: the block has no mean for it\n"},
    {"simple contrasts in panels of texts",
     Nothing,
     Plain(SimpleInPanels),
     R"(
chart GLMMSimpleContrasts Simple Contrasts
source.value: 3 5 10 6 3 3
source.category: 2 2 2 2 3 3
source.type: 1 1 1 1 0 0
source.facet1: 'hi' 'hi' 'lo' 'lo' 'hi' 'hi'
source.facet2: 0 0 0 0 0 0
source.confMargin: 2 4 9 11 2 4
source.tooltip: 'Yield: two > one' 'Yield: two > one' 'Yield: two < one' 'Yield: two < one' 'Yield: 3 ~ one' 'Yield: 3 ~ one'
category[0]: setLabel(a) setKESTVariable(a) addRelabels()
facet1[0]: setLabel(Level) setKESTVariable(b) addRelabels() setFormatBasedOnKESTVariable(b) SetFormatPrefix(Level = )
)",
     {"\"facet1\"", "y=\"3\"><unless><![CDATA[facet1!=&quot;hi&quot;]]>",
      "y=\"10\"><unless><![CDATA[facet1!=&quot;lo&quot;]]>", "[Yield at a = one (one)]"},
     {"whenText", "\"facet2\"></variableReference>"}},
    {"no overall tests", Nothing, Changed(Pairs, [](ChartStage&, EmmeansData& block) { block.fvOverallTests.clear(); }),
     ""},
    {"no kind", Nothing,
     Changed(Pairs, [](ChartStage&, EmmeansData& block) { block.fContrasts.fContrastKind = ContrastKind::OTHER; }), ""},
    {"one factor column",
     Nothing,
     Changed(Pairs, [](ChartStage&, EmmeansData& block) { block.fContrasts.fvFactorCoords.pop_back(); }),
     "",
     {},
     {},
     "a chart of contrasts is left out: its contrasts have one factor column, not two\n"},
    {"no adjustment that is known",
     Nothing,
     Changed(Pairs, [](ChartStage& stage,
                       EmmeansData&) { stage.fStats.GetBuildSettings()->fPAdjustment = PAdjustment::OTHER; }),
     nullptr,
     {"<footnote><![CDATA[]]></footnote>"}},
};

TEST(ContrastCharts, AreSent) { CheckCharts(kContrastCharts); }

TEST(MeansCharts, AreNotSentWithoutSettings) {
    ChartStage stage;
    stage.fStats.CreateEmmeansEstimates();
    stage.fStats.RemoveBuildSettings();
    HFITChartOutput charts(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats);
    charts.BuildTopMeansCharts();
    charts.BuildCustomEffectsChart(BlockOf(MeansOf({ColumnOf("a", {"1"})}, {"1"}, {}, {})));
    charts.BuildContrastChart(Pairs());
    EXPECT_TRUE(stage.fRun.GetDocument().fItems.empty());
}

}  // namespace
}  // namespace hierfit::test
