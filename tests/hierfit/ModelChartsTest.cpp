#include <gtest/gtest.h>

#include "tests/hierfit/ChartCase.h"

namespace hierfit::test {
namespace {

// ---- Predicted by Observed ----

void PredictedByObserved(ChartStage&, HFITChartOutput& charts) { charts.BuildPredictedByObservedChart(); }

void FillPredictions(ChartStage& stage, int totalFreq) {
    stage.fStats.CreateModelDiagnostics()->fPredByObserved = {.fDescription = "observedByPredicted",
                                                              .fTotalFreq = totalFreq,
                                                              .fvObserved = {1, 2.5, 3},
                                                              .fvStatistic = {1.5, 2, 2},
                                                              .fvFrequency = {1, 4},
                                                              .fAxisMin = -0.125,
                                                              .fAxisMax = 1234567};
}

const ChartCase kPredictions[] = {
    {"fewer frequencies than values, few records",
     [](ChartStage& stage) { FillPredictions(stage, 99); },
     PredictedByObserved,
     R"(
chart GLMMPredictedByObserved Predicted by Observed
source0.X: 1 2.5
source0.Y: 1.5 2
source0.Frequency: 1 4
X[0]: setFormat(8.5.2)
Y[0]: setFormat(8.5.2)
)",
     {"min=\"-0.125\" max=\"1.23457e+06\"", "<legend  visible=\"false\" id=\"legendStyle\"", "Predicted by Observed",
      "slot=\"X\"", "label=\"Yield\"", "label=\"E61604\"", "slot=\"Transparency\" name=\"Frequency\"",
      "label=\"E60352\""}},
    {"many records",
     [](ChartStage& stage) { FillPredictions(stage, 100); },
     PredictedByObserved,
     nullptr,
     {},
     {"visible"}},
    {"predictions of another kind",
     [](ChartStage& stage) { stage.fStats.CreateModelDiagnostics()->fPredByObserved.fDescription = "other"; },
     PredictedByObserved,
     R"(
chart GLMMPredictedByObserved Predicted by Observed
source0.X:
source0.Y:
source0.Frequency:
X[0]: setFormat(8.5.2)
Y[0]: setFormat(8.5.2)
)",
     {"min=\"0\" max=\"0\""}},
    {"no predictions", [](ChartStage& stage) { stage.fStats.CreateModelDiagnostics(); }, PredictedByObserved, ""},
    {"no diagnostics", [](ChartStage&) {}, PredictedByObserved, ""},
};

TEST(PredictedByObservedChart, IsSent) { CheckCharts(kPredictions); }

// ---- Diagrams ----

void Effects(ChartStage&, HFITChartOutput& charts) { charts.BuildFixedEffectsDiagram(); }
void Coefficients(ChartStage&, HFITChartOutput& charts) { charts.BuildFixedCoefficientsDiagram(); }

TargetDistribution SampleTarget() {
    return {.fDescription = "TargetDistribution",
            .fMean = 3,
            .fShape = 2,
            .fRate = 0.5,
            .fR = 4,
            .fP = 0.25,
            .fvObserved = {1, 2, 3},
            .fvFrequency = {5, 6}};
}

void FillTests(ChartStage& stage, const std::vector<EffectTest>& tests) {
    stage.fStats.CreateModelDiagnostics()->fTargetDistribution = SampleTarget();
    stage.fStats.CreateEffectStatData()->fvFixedEffectTests = tests;
}

EffectTest TestOf(int id, double sig) {
    EffectTest test;
    test.fTestID = id;
    test.fSig = sig;
    return test;
}

const ChartCase kEffectDiagrams[] = {
    {"tests that are shown and such that are not",
     [](ChartStage& stage) {
         FillTests(stage, {TestOf(0, 0), TestOf(1, 1), TestOf(2, 0.05), TestOf(10, 0.01), TestOf(1, kSystemMissing)});
     },
     Effects,
     R"(
chart GLMMFixedCoefficients.viztemplate Fixed Effects
targetPointSource.X: 2
targetPointSource.Y: 1.5
targetPointSource.Type: 'target'
targetPointSource.Nodes: 'y'
targetPointSource.PointTooltip: 'y
Yield
Probability Distribution Gamma, Link Function Power (2) ...'
pointSource.X: 0.2679491924 0.2679491924
pointSource.Y: 2 1
pointSource.Label_X: -0.1320508076 -0.1320508076
pointSource.Label_Y: 2 1
pointSource.Type: 'continuous' 'interaction'
pointSource.Nodes: 'x' 'b*x*a'
pointSource.PointTooltip: 'x
Dose' 'b
Level(x
Dose)(a)'
edgeSource.FromX: 0.2679491924 0.2679491924
edgeSource.FromY: 2 1
edgeSource.ToX: 2 2
edgeSource.ToY: 1.5 1.5
edgeSource.Weight: 9 3
edgeSource.Weight2: - -
edgeSource.LineTooltip: 'E62317 = 0.000' 'E62317 = 0.050'
)",
     {"<plot id=\"graphStyle\" margin-bottom=\"30px\"  arrange", "<span of=\"x\" max=\"2.66667\"/>",
      "<span min=\"1\" max=\"2\" of=\"y\"/>", "<legend visible=\"false\"  id=\"legendStyle\"", "high=\"9\" low=\"3\"",
      "[Fixed Effects]", "fieldType=\"2\"", "binStatistic binCount=\"2\" ",
      "<distributionStatistic parameter=\"2\"  secondaryParameter=\"0.5\"  distribution=\"gamma\""}},
    {"no tests in the document",
     [](ChartStage& stage) { stage.fStats.CreateModelDiagnostics()->fTargetDistribution = SampleTarget(); },
     Effects,
     R"(
chart GLMMFixedCoefficients.viztemplate Fixed Effects
)",
     {"id=\"graphStyle\" arrange", "max=\"2\" min=\"0\" />", "max=\"1\"", "high=\"9\" low=\"1\""}},
    {"no test that is shown", [](ChartStage& stage) { FillTests(stage, {TestOf(0, 1.5)}); }, Effects, ""},
    {"a test of an effect that the model lacks",
     [](ChartStage& stage) {
         FillTests(stage, {TestOf(7, 0.5), TestOf(1, 0.5)});
     },
     Effects,
     nullptr,
     {},
     {},
     "chart \"Fixed Effects\": test 7 is left out: the model has no such effect with fields\n"},
    {"nine nodes",
     [](ChartStage& stage) { FillTests(stage, std::vector<EffectTest>(9, TestOf(0, 0.5))); },
     Effects,
     nullptr,
     {"id=\"graphStyle\" arrange", "max=\"12\"", "max=\"9\"", "high=\"1\" low=\"1\""}},
};

TEST(FixedEffectsDiagram, IsSent) { CheckCharts(kEffectDiagrams); }

ParamEstimate EstimateOf(const std::string& label, double estimate, double sig) {
    ParamEstimate one;
    one.fStatName = "fixedEffectIndex";
    one.fStatIndex = 9;
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

ParamEstimate WithFactors(ParamEstimate one, std::initializer_list<std::pair<const char*, CFStatVariableValue>> terms) {
    for (const auto& [field, value] : terms) one.fParam.fvFactors.push_back({field, 0, value, false});
    return one;
}

ParamEstimate WithCovariates(ParamEstimate one, std::initializer_list<const char*> fields) {
    for (const char* field : fields) one.fParam.fvCovariates.push_back({field, 0, 1});
    return one;
}

void FillCoefficients(ChartStage& stage) {
    ParamEstimate redundant = EstimateOf("a=3", 0, 0.5);
    redundant.fIsRedundant = true;
    ParamEstimate late = EstimateOf("late", 0, 0.5);
    late.fStatIndex = 10;
    stage.fStats.CreateParamCollect()->fvFixedParamEstim = {
        ParamGroup{
            {}, {}, {Intercept(0.9999), Intercept(1), WithCovariates(EstimateOf("x", -0.25, 0.0001), {"x"}), late}},
        ParamGroup{
            {},
            {},
            {WithFactors(EstimateOf("b=hi", 0, 0.3), {{"b", stage.Value("b", "hi")}}),
             WithFactors(EstimateOf("a=1*b=hi", 1, 0.3), {{"a", stage.Value("a", "1")}, {"b", stage.Value("b", "hi")}}),
             WithCovariates(EstimateOf("x*n", 1, 0.3), {"x", "n"}), redundant}}};
}

const ChartCase kCoefficientDiagrams[] = {
    {"terms of every kind",
     FillCoefficients,
     Coefficients,
     R"(
chart GLMMFixedCoefficients.viztemplate Fixed Coefficients
targetPointSource.X: 5
targetPointSource.Y: 3
targetPointSource.Type: 'target'
targetPointSource.Nodes: 'y'
targetPointSource.PointTooltip: 'y
Yield
Probability Distribution Gamma, Link Function Power (2) ...'
pointSource.X: 2 0.417424305 0 0.417424305 2
pointSource.Y: 5 4 3 2 1
pointSource.Label_X: 1 -0.582575695 -1 -0.582575695 1
pointSource.Label_Y: 5 4 3 2 1
pointSource.Type: 'intercept' 'continuous' 'categorical' 'interaction' -
pointSource.Nodes: 'Intercept' 'x' 'b=hi' 'a=1*b=hi' 'x*n'
pointSource.PointTooltip: '' 'x
Dose' 'b = hi
Level = ' 'a = 1 (one)' -
edgeSource.FromX: 2 0.417424305 0 0.417424305 2
edgeSource.FromY: 5 4 3 2 1
edgeSource.ToX: 5 5 5 5 5
edgeSource.ToY: 3 3 3 3 3
edgeSource.Weight: 1 8 1 1 1
edgeSource.Weight2: 'Positive' 'Negative' 'Positive' 'Positive' 'Positive'
edgeSource.LineTooltip: 'Coefficient = .
E62317 = 1.000' 'Coefficient = -0.250
E62317 = 0.000' 'Coefficient = 0.000
E62317 = 0.300' 'Coefficient = 1.000
E62317 = 0.300' 'Coefficient = 1.000
E62317 = 0.300'
)",
     {"<legend id=\"legendStyle\"", "[Coefficient Estimate]", "high=\"8\" low=\"1\""},
     {"inset"}},
    {"weights of both diagrams count in the second one",
     [](ChartStage& stage) {
         FillTests(stage, {TestOf(0, 0), TestOf(1, 0.02)});
         FillCoefficients(stage);
     },
     [](ChartStage& stage, HFITChartOutput& charts) {
         Effects(stage, charts);
         Coefficients(stage, charts);
     },
     nullptr,
     {"high=\"9\" low=\"4\"", "distribution=\"gamma\"", "high=\"9\" low=\"1\"", "parameter=\"2\""}},
    {"no coefficient that is shown",
     [](ChartStage& stage) {
         stage.fStats.CreateParamCollect()->fvFixedParamEstim = {{{}, {}, {Intercept(1)}}};
     },
     Coefficients, ""},
};

TEST(FixedCoefficientsDiagram, IsSent) { CheckCharts(kCoefficientDiagrams); }

TEST(TargetHistogram, NamesTheDistribution) {
    const struct {
        int fDistribution;
        const char* fXml;
    } cases[] = {
        {DistributionOfTarget::IGAUSS, " parameter=\"3\"  secondaryParameter=\"2\"  distribution=\"gaussianinverse\""},
        {DistributionOfTarget::NEGBIN,
         " parameter=\"4\"  secondaryParameter=\"0.25\"  distribution=\"binomialnegative\""},
        {DistributionOfTarget::POISSON, "<distributionStatistic parameter=\"3\"  distribution=\"poisson\""},
        {DistributionOfTarget::BINOMIAL, "<distributionStatistic distribution=\"normal\""},
    };
    for (const auto& one : cases) {
        ChartStage stage;
        FillTests(stage, {TestOf(0, 0.5)});
        stage.fStats.GetBuildSettings()->fDistribution = one.fDistribution;
        HFITChartOutput(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats).BuildFixedEffectsDiagram();
        EXPECT_NE(XmlOfCharts(stage.fRun.GetDocument().fItems).find(one.fXml), std::string::npos) << one.fXml;
    }
}

TEST(Diagrams, AreNotSentWithoutSettings) {
    ChartStage stage;
    FillTests(stage, {TestOf(0, 0.5)});
    FillCoefficients(stage);
    stage.fStats.RemoveBuildSettings();
    HFITChartOutput charts(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats);
    charts.BuildFixedEffectsDiagram();
    charts.BuildFixedCoefficientsDiagram();
    EXPECT_TRUE(stage.fRun.GetDocument().fItems.empty());
}

}  // namespace
}  // namespace hierfit::test
