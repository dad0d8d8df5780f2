#include <gtest/gtest.h>

#include "tests/hierfit/ChartCase.h"

namespace hierfit::test {
namespace {

constexpr const char* kMissing = "__MISSING__";

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

void MakeTopMeans(ChartStage& stage, const std::vector<EstimateData>& records) {
    *stage.fStats.CreateEmmeansEstimates() = records;
    stage.Charts().BuildTopMeansCharts();
}

const ChartCase kTopMeans[] = {
    // One factor, one of an unknown effect, and two factors.
    {[](ChartStage& stage) {
         MakeTopMeans(stage, {MeansOf({ColumnOf("a", {"1", "x1", "2"})}, {"5", kMissing}, {"4"}, {"6", "7"}),
                              MeansOf({ColumnOf("t", {"1"})}, {"1"}, {"1"}, {"1"}),
                              MeansOf({ColumnOf("b", {"lo"}), ColumnOf("a", {"2"})}, {"1"}, {"0"}, {"2"})});
     },
     {R"(chart GLMMEmMeans Yield by a
source0.effect1: 1 1 'x1' 'x1' 2 2
source0.effect2: - - - - - -
source0.target: 5 5 0 0 - -
source0.confMargin: 4 6 0 7 - -
effect1[0]: setLabel setKESTVariable addRelabels
)",
      "[Yield]", R"(chart GLMMEmMeans Yield by Level * a
source0.effect1: 'lo' 'lo'
source0.effect2: 2 2
source0.target: 1 1
source0.confMargin: 0 2
)",
      "<legend id=\"legend\">", "!by t"},
     "a chart of means is left out: its first factor begins no fixed effect\n"},
    // Twelve records.
    {[](ChartStage& stage) {
         MakeTopMeans(stage, std::vector<EstimateData>(12, MeansOf({ColumnOf("a", {})}, {}, {}, {})));
         const auto& heading = std::get<document::Heading>(stage.fRun.GetItems().front().fContent);
         EXPECT_EQ(heading.fItems.size(), 11U);
     },
     {"chart", "!<legend"}},
    {[](ChartStage& stage) { stage.Charts().BuildTopMeansCharts(); }},
};

TEST(TopMeansCharts, AreSent) { CheckCharts(kTopMeans); }

EmmeansData BlockOf(EstimateData estimates, std::vector<WarningMessage> warnings = {}) {
    EmmeansData block;
    block.fEstimates = std::move(estimates);
    block.fvWarningList = std::move(warnings);
    return block;
}

const ChartCase kCustomEffects[] = {
    // One factor, limits missing here and there.
    {[](ChartStage& stage) {
         EmmeansData block = BlockOf(MeansOf({ColumnOf("x", {"1", "2", "3", "4"})}, {"5", kMissing, "6", "7"},
                                             {"4", "1", kMissing, "6"}, {"6", "1", "8", ""}));
         block.fvLabels = {{"x", stage.Value("x", "2.345")}, {"n", stage.Value("n", "7")}};
         stage.Charts().BuildCustomEffectsChart(block);
     },
     {R"(
source_0.targetValue: 5 5 - - 6 6 7 7
source_0.effect1: 1 1 - - 3 3 4 4
source_0.effect2: '' '' - - '' '' '' ''
source_0.effect3: '' '' - - '' '' '' ''
source_0.confMargin: 4 6 - - 8 8 6 -
effect1[0]: setLabel setCategorical
)",
      "[Continuous predictors fixed at x = 2.35, n = 7]", "!<color", "!<faceting"}},
    {[](ChartStage& stage) {
         const EstimateData means = MeansOf({ColumnOf("a", {"1"}), ColumnOf("b", {"hi"})}, {"5"}, {"4"}, {"6"});
         stage.Charts().BuildCustomEffectsChart(BlockOf(means));
         stage.Charts().BuildCustomEffectsChart(BlockOf(means, {{"kGLMM_C19_1", {}}, {"kGLMM_C20", {}}}));
         EXPECT_EQ(stage.fRun.GetItems().size(), 1U);
     },
     {"<color", "!<faceting", "<footnote><![CDATA[]]></footnote>"}},
};

TEST(CustomEffectsChart, IsSent) { CheckCharts(kCustomEffects); }

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

EmmeansData Pairs() {
    return ContrastsOf(ContrastKind::PAIRWISE, {ColumnOf("a", {"1", "1", "2"}), ColumnOf("a", {"02", "3", "3"})},
                       {"1", "-1", "x"}, {kMissing, "1", "0.05"});
}

EmmeansData Deviations() {
    EmmeansData block = ContrastsOf(ContrastKind::DEVIATION, {ColumnOf("a", {"1", "2", "4", "3"}), ColumnOf("a", {})},
                                    {"-1", "1", "0", "0"}, {"0.01", "0.05", "0", "0.01"});
    block.fEstimates = MeansOf({ColumnOf("a", {"1", "2", "1", "3"})}, {"9", "11.5", "77", "10"}, {}, {});
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

const ChartCase kContrastCharts[] = {
    // Pairs with a missing, a full and a strict significance.
    {[](ChartStage& stage) { stage.Charts().BuildContrastChart(Pairs()); },
     {R"(
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
)",
      "[Sequential Sidak significance adjust 0.05\nConfidence interval bounds are approximate.]", "!faceting"}},
    // Deviations, one without a mean and one of nothing.
    {[](ChartStage& stage) { stage.Charts().BuildContrastChart(Deviations()); },
     {R"(
source.value: 10 9 10 11.5 10 10
source.category: 1 1 2 2 3 3
source.type: 1 1 0 0 1 1
source.facet1: 0 0 0 0 0 0
source.facet2: 0 0 0 0 0 0
source.confMargin: 9 11 9 11 9 11
source.tooltip: 'Yield: one down' 'Yield: one down' 'Yield: two same' 'Yield: two same' 'Yield: 3 down' 'Yield: 3 down'
)",
      "y=\"10\"><unless><![CDATA[false]]>", "!whenText", "!faceting"},
     "chart \"Deviation Contrasts\": a level is left out: the block has no mean for it\n"},
    // Simple contrasts in panels of texts.
    {[](ChartStage& stage) { stage.Charts().BuildContrastChart(SimpleInPanels()); },
     {R"(
source.value: 3 5 10 6 3 3
source.category: 2 2 2 2 3 3
source.type: 1 1 1 1 0 0
source.facet1: 'hi' 'hi' 'lo' 'lo' 'hi' 'hi'
source.facet2: 0 0 0 0 0 0
source.confMargin: 2 4 9 11 2 4
source.tooltip: 'Yield: two > one' 'Yield: two > one' 'Yield: two < one' 'Yield: two < one' 'Yield: 3 ~ one' 'Yield: 3 ~ one'
)",
      "y=\"3\"><unless><![CDATA[facet1!=&quot;hi&quot;]]>", "y=\"10\"><unless><![CDATA[facet1!=&quot;lo&quot;]]>",
      "!\"facet2\"></variableReference>"}},
    // Neither overall tests, nor a kind, nor a second factor column.
    {[](ChartStage& stage) {
         EmmeansData blocks[] = {Pairs(), Pairs(), Pairs()};
         blocks[0].fvOverallTests.clear();
         blocks[1].fContrasts.fContrastKind = ContrastKind::OTHER;
         blocks[2].fContrasts.fvFactorCoords.pop_back();
         for (const EmmeansData& block : blocks) stage.Charts().BuildContrastChart(block);
     },
     {},
     "a chart of contrasts is left out: its contrasts have one factor column, not two\n"},
    {[](ChartStage& stage) {
         stage.fStats.GetBuildSettings()->fPAdjustment = PAdjustment::OTHER;
         stage.Charts().BuildContrastChart(Pairs());
     },
     {"<footnote><![CDATA[]]></footnote>"}},
    // No settings.
    {[](ChartStage& stage) {
        stage.fStats.RemoveBuildSettings();
        MakeTopMeans(stage, {});
        stage.Charts().BuildCustomEffectsChart(BlockOf(MeansOf({ColumnOf("a", {"1"})}, {"1"}, {}, {})));
        stage.Charts().BuildContrastChart(Pairs());
    }},
};

TEST(ContrastCharts, AreSent) { CheckCharts(kContrastCharts); }

}  // namespace
}  // namespace hierfit::test
