#include <gtest/gtest.h>

#include "tests/hierfit/ChartCase.h"

namespace hierfit::test {
namespace {

void MakePredictions(ChartStage& stage, int totalFreq) {
    stage.fStats.CreateModelDiagnostics()->fPredByObserved = {.fDescription = "observedByPredicted",
                                                              .fTotalFreq = totalFreq,
                                                              .fvObserved = {1, 2.5, 3},
                                                              .fvStatistic = {1.5, 2, 2},
                                                              .fvFrequency = {1, 4},
                                                              .fAxisMin = -0.125,
                                                              .fAxisMax = 1234567};
    stage.Charts().BuildPredictedByObservedChart();
}

const ChartCase kPredictions[] = {
    // Fewer frequencies than values, few records.
    {[](ChartStage& stage) { MakePredictions(stage, 99); },
     {"source0.X: 1 2.5\nsource0.Y: 1.5 2\nsource0.Frequency: 1 4\n", "min=\"-0.125\" max=\"1.23457e+06\"",
      "<legend  visible=\"false\" id=\"legendStyle\""}},
    {[](ChartStage& stage) { MakePredictions(stage, 100); }, {"chart", "!visible"}},
    // Predictions of another kind.
    {[](ChartStage& stage) {
         stage.fStats.CreateModelDiagnostics()->fPredByObserved.fDescription = "other";
         stage.Charts().BuildPredictedByObservedChart();
     },
     {"source0.X:\nsource0.Y:\nsource0.Frequency:\n", "min=\"0\" max=\"0\""}},
    {[](ChartStage& stage) {
        stage.Charts().BuildPredictedByObservedChart();
        stage.fStats.CreateModelDiagnostics();
        stage.Charts().BuildPredictedByObservedChart();
    }},
};

TEST(PredictedByObservedChart, IsSent) { CheckCharts(kPredictions); }

// ---- Diagrams ----

void FillTarget(ChartStage& stage) {
    stage.fStats.CreateModelDiagnostics()->fTargetDistribution = {.fDescription = "TargetDistribution",
                                                                  .fMean = 3,
                                                                  .fShape = 2,
                                                                  .fRate = 0.5,
                                                                  .fR = 4,
                                                                  .fP = 0.25,
                                                                  .fvObserved = {1, 2, 3},
                                                                  .fvFrequency = {5, 6}};
}

/// Tests by the effects' numbers and significances.
void MakeEffects(ChartStage& stage, const std::vector<std::pair<int, double>>& tests) {
    FillTarget(stage);
    std::vector<EffectTest>& all = stage.fStats.CreateEffectStatData()->fvFixedEffectTests;
    for (const auto& [id, sig] : tests) {
        all.emplace_back().fTestID = id;
        all.back().fSig = sig;
    }
    stage.Charts().BuildFixedEffectsDiagram();
}

const ChartCase kEffectDiagrams[] = {
    // Tests that are shown and such that are not.
    {[](ChartStage& stage) {
         MakeEffects(stage, {{0, 0}, {1, 1}, {2, 0.05}, {10, 0.01}, {1, kSystemMissing}, {1, -0.0001}});
     },
     {R"(
pointSource.Type: 'continuous' 'interaction'
pointSource.Nodes: 'x' 'b*x*a'
pointSource.PointTooltip: 'x
Dose' 'b
Level(x
Dose)(a)'
)",
      "edgeSource.Weight: 9 3\n", "<plot id=\"graphStyle\" margin-bottom=\"30px\"  arrange", "max=\"2.66667\"",
      "max=\"2\"", "high=\"9\" low=\"3\"", "fieldType=\"2\"", "binStatistic binCount=\"2\" "}},
    // No tests in the document.
    {[](ChartStage& stage) {
         FillTarget(stage);
         stage.Charts().BuildFixedEffectsDiagram();
     },
     {"chart", "!pointSource.", "id=\"graphStyle\" arrange", "max=\"2\" min=\"0\" />", "max=\"1\"",
      "high=\"9\" low=\"1\""}},
    {[](ChartStage& stage) {
        MakeEffects(stage, {{0, 1.5}});
    }},
    {[](ChartStage& stage) {
         MakeEffects(stage, {{7, 0.5}, {1, 0.5}});
     },
     {"pointSource.Nodes: - 'a'\n"},
     "chart \"Fixed Effects\": test 7 is left out: the model has no such effect with fields\n"},
    // Nine nodes.
    {[](ChartStage& stage) { MakeEffects(stage, std::vector(9, std::pair(0, 0.5))); },
     {"id=\"graphStyle\" arrange", "max=\"12\"", "max=\"9\"", "high=\"1\" low=\"1\""}},
};

TEST(FixedEffectsDiagram, IsSent) { CheckCharts(kEffectDiagrams); }

ParamEstimate EstimateOf(const std::string& label, double estimate, double sig, int index = 9) {
    ParamEstimate one;
    one.fStatName = "fixedEffectIndex";
    one.fStatIndex = index;
    one.fParamLabel = label;
    one.fEstimate = estimate;
    one.fSig = sig;
    return one;
}

ParamEstimate Intercept(double sig) {
    ParamEstimate one = EstimateOf("i", kSystemMissing, sig);
    one.fStatName = "";
    one.fIsRedundant = true;
    one.fParam.fIsIntercept = true;
    return one;
}

ParamEstimate WithTerms(ParamEstimate one, const Strings& covariates, const std::vector<FactorTerm>& factors = {}) {
    for (const std::string& field : covariates) one.fParam.fvCovariates.push_back({field, 0, 1});
    one.fParam.fvFactors = factors;
    return one;
}

void MakeCoefficients(ChartStage& stage) {
    const FactorTerm high{"b", 0, stage.Value("b", "hi"), false};
    const FactorTerm one{"a", 0, stage.Value("a", "1"), false};
    ParamEstimate redundant = EstimateOf("a=3", 0, 0.5);
    redundant.fIsRedundant = true;
    std::vector<ParamGroup>& groups = stage.fStats.CreateParamCollect()->fvFixedParamEstim;
    groups.resize(2);
    groups[0].fvParamEstimates = {Intercept(0.9999), Intercept(1), WithTerms(EstimateOf("x", -0.25, 0.0001), {"x"}),
                                  EstimateOf("late", 0, 0.5, 10)};
    groups[1].fvParamEstimates = {WithTerms(EstimateOf("b=hi", 0, 0.3), {}, {high}),
                                  WithTerms(EstimateOf("a*b", 1, 0.3), {}, {one, high}),
                                  WithTerms(EstimateOf("x*n", 1, 0.3), {"x", "n"}), redundant};
}

const ChartCase kCoefficientDiagrams[] = {
    // Terms of every kind.
    {[](ChartStage& stage) {
         MakeCoefficients(stage);
         stage.Charts().BuildFixedCoefficientsDiagram();
     },
     {R"(
targetPointSource.PointTooltip: 'y
Yield
Probability Distribution G, Link Function P (2) ...'
)",
      R"(
pointSource.Type: 'intercept' 'continuous' 'categorical' 'interaction' -
pointSource.Nodes: 'Intercept' 'x' 'b=hi' 'a*b' 'x*n'
pointSource.PointTooltip: '' 'x
Dose' 'b = hi
Level = ' 'a = 1 (one)' -
)",
      R"(
edgeSource.Weight2: 'Positive' 'Negative' 'Positive' 'Positive' 'Positive'
edgeSource.LineTooltip: 'Coefficient = .
E62317 = 1.000' 'Coefficient = -0.250
)",
      "high=\"8\" low=\"1\"", "!inset"}},
    // Weights of both diagrams count in the second one.
    {[](ChartStage& stage) {
         FillTarget(stage);
         stage.fStats.CreateEffectStatData()->fvFixedEffectTests.resize(1);
         stage.fStats.GetEffectStatData()->fvFixedEffectTests[0].fSig = 0;
         MakeCoefficients(stage);
         HFITChartOutput charts = stage.Charts();
         charts.BuildFixedEffectsDiagram();
         charts.BuildFixedCoefficientsDiagram();
     },
     {"high=\"9\" low=\"9\"", "high=\"9\" low=\"1\"", "parameter=\"2\""}},
    {[](ChartStage& stage) {
        stage.fStats.CreateParamCollect()->fvFixedParamEstim = {{{}, {}, {Intercept(1)}}};
        stage.Charts().BuildFixedCoefficientsDiagram();
    }},
    // No settings.
    {[](ChartStage& stage) {
        stage.fStats.RemoveBuildSettings();
        MakeEffects(stage, {{0, 0.5}});
        MakeCoefficients(stage);
        stage.Charts().BuildFixedCoefficientsDiagram();
    }},
};

TEST(FixedCoefficientsDiagram, IsSent) { CheckCharts(kCoefficientDiagrams); }

TEST(TargetHistogram, NamesTheDistribution) {
    const std::pair<int, const char*> cases[] = {
        {DistributionOfTarget::IGAUSS, " parameter=\"3\"  secondaryParameter=\"2\"  distribution=\"gaussianinverse\""},
        {DistributionOfTarget::NEGBIN,
         " parameter=\"4\"  secondaryParameter=\"0.25\"  distribution=\"binomialnegative\""},
        {DistributionOfTarget::POISSON, "<distributionStatistic parameter=\"3\"  distribution=\"poisson\""},
        {DistributionOfTarget::BINOMIAL, "<distributionStatistic distribution=\"normal\""},
    };
    for (const auto& [type, xml] : cases) {
        const ChartCase one{[distribution = type](ChartStage& stage) {
                                stage.fStats.GetBuildSettings()->fDistribution = distribution;
                                MakeEffects(stage, {{0, 0.5}});
                            },
                            {xml}};
        CheckCharts({&one, 1});
    }
}

}  // namespace
}  // namespace hierfit::test
