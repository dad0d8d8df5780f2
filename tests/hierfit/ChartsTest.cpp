#include <gtest/gtest.h>

#include <functional>

#include "hierfit/HFITChartOutput.h"
#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {
namespace {

constexpr const char* kMissing = "__MISSING__";

/// Words for the keys whose marks the charts fill in.
class Words : public context::Translator {
  public:
    std::optional<std::string_view> Find(std::string_view key) const override {
        for (const auto& [word, text] : kTexts) {
            if (word == key) return text;
        }
        return std::nullopt;
    }

  private:
    static constexpr std::pair<std::string_view, std::string_view> kTexts[] = {
        {"Simple Higher", "^1: ^2 > ^3"},
        {"Simple Lower", "^1: ^2 < ^3"},
        {"Simple Same", "^1: ^2 ~ ^3"},
        {"Deviation Higher", "^1: ^2 up"},
        {"Deviation Lower", "^1: ^2 down"},
        {"Deviation Same", "^1: ^2 same"},
        {"Horizontal Line Simple", "^1 at ^2 = ^3 (^3)"},
    };
};

/// The fields of the samples, two values of "a" and one of "b" with labels.
std::string LabelledPmml() {
    std::string pmml = SamplePmml();
    for (const auto& [from, to] :
         {std::pair{"<Value value=\"1\"/><Value value=\"2\"/><Value value=\"3\"/>",
                    "<Value value='1' displayValue='one'/><Value value='2' displayValue='two'/>"},
          std::pair{"<Value value=\"lo\"/>", "<Value value='lo' displayValue='Low'/>"}}) {
        pmml.replace(pmml.find(from), std::string(from).size(), to);
    }
    return pmml;
}

/// A store that a case fills, and the charts that come of it.
struct ChartStage {
    ChartStage() {
        fStats.SetMetaData(fRun.GetMetaData());
        BuildSettings& settings = *fStats.CreateBuildSettings();
        settings.fTargetIndex = Index("y");
        settings.fDistribution = DistributionOfTarget::GAMMA;
        settings.fLink = LinkFunctionType::POWER;
        settings.fLinkParamText = "2";
        settings.fvFixedEffectList = {Effect({"x"}), Effect({"a"}), Effect({"b", "x", "a"})};
        settings.fPAdjustment = PAdjustment::SEQSIDAK;
    }

    int Index(const std::string& field) { return fRun.GetDataSource()->FindVarIndex(field, 0); }

    EffectStruct Effect(const Strings& fields) {
        EffectStruct effect;
        for (const std::string& field : fields) {
            effect.fvFieldNames.push_back(field);
            effect.fvFieldIndex.push_back(Index(field));
            effect.fvNestingLevels.push_back(0);
        }
        return effect;
    }

    CFStatVariableValue Value(const std::string& field, const std::string& text) {
        CFStatVariableValue value;
        value.SetCompleteValue(text, fRun.GetDataSource()->GetVariable(Index(field)), 0);
        return value;
    }

    Words fWords;
    ProcedureRun fRun{LabelledPmml(), &fWords};
    HFITOutputStats fStats;
};

std::string DrawCharts(const std::list<document::Item>& items) {
    std::string drawn;
    for (const document::Item& item : items) {
        if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) drawn += DrawChart(*chart);
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
            drawn += "heading " + DrawText(heading->fTitle) + "\n" + DrawCharts(heading->fItems);
        }
    }
    return drawn;
}

std::string XmlOfCharts(const std::list<document::Item>& items) {
    std::string xml;
    for (const document::Item& item : items) {
        if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) xml += chart->fXml;
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) xml += XmlOfCharts(heading->fItems);
    }
    return xml;
}

struct ChartCase {
    const char* fName;
    std::function<void(ChartStage&)> fFill;
    std::function<void(ChartStage&, HFITChartOutput&)> fBuild;
    const char* fDrawn;       ///< behind a line feed; "" for none, null for any
    Strings fvXmlHolds = {};  ///< in this order
    Strings fvXmlLacks = {};
    const char* fDiagnostics = "";
};

void CheckXml(const std::string& xml, const ChartCase& one) {
    std::size_t place = 0;
    for (const std::string& text : one.fvXmlHolds) {
        const std::size_t found = xml.find(text, place);
        EXPECT_NE(found, std::string::npos) << text;
        if (found != std::string::npos) place = found;
    }
    for (const std::string& text : one.fvXmlLacks) EXPECT_EQ(xml.find(text), std::string::npos) << text;
}

void CheckChart(const ChartCase& one) {
    SCOPED_TRACE(one.fName);
    ChartStage stage;
    one.fFill(stage);
    HFITChartOutput charts(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats);
    one.fBuild(stage, charts);
    const std::list<document::Item>& items = stage.fRun.GetDocument().fItems;
    const std::string drawn = DrawCharts(items);
    if (one.fDrawn) {
        EXPECT_EQ(drawn.empty() ? "" : "\n" + drawn, one.fDrawn);
    }
    CheckXml(XmlOfCharts(items), one);
    EXPECT_EQ(stage.fRun.Diagnostics(), one.fDiagnostics);
}

template <std::size_t n>
void CheckCharts(const ChartCase (&cases)[n]) {
    for (const ChartCase& one : cases) CheckChart(one);
}

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
      "<span of=\"y\" min=\"1\" max=\"2\"/>", "high=\"9\" low=\"3\"", "<legend visible=\"false\"  id=\"legendStyle\"",
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
     {"high=\"8\" low=\"1\"", "<legend id=\"legendStyle\"", "[Coefficient Estimate]"},
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
void Nothing(ChartStage&) {}

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

TEST(Charts, AreNotSentWithoutSettings) {
    ChartStage stage;
    FillTests(stage, {TestOf(0, 0.5)});
    stage.fStats.CreateEmmeansEstimates();
    stage.fStats.RemoveBuildSettings();
    HFITChartOutput charts(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats);
    FillCoefficients(stage);
    charts.BuildFixedEffectsDiagram();
    charts.BuildFixedCoefficientsDiagram();
    charts.BuildTopMeansCharts();
    charts.BuildCustomEffectsChart(BlockOf(MeansOf({ColumnOf("a", {"1"})}, {"1"}, {}, {})));
    charts.BuildContrastChart(Pairs());
    EXPECT_TRUE(stage.fRun.GetDocument().fItems.empty());
}

}  // namespace
}  // namespace hierfit::test
