#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/TableCase.h"

namespace hierfit::test {
namespace {

std::string Requests(const std::string& requests) { return ParameterOf("EMMEANS", List(requests)); }

std::string Settings(const std::string& more) { return Sample().fSettings + more; }

std::string Block(const std::string& index, const std::string& content) {
    return "<DataGroup description='customEmmeans'><Statistic name='EMMEANSIndex' value='" + index + "'/>" + content +
           "</DataGroup>";
}

std::string Table(const std::string& description, const std::string& factors, const std::string& figures) {
    return "<MultivariateData description='" + description + "'>" + factors + figures + "</MultivariateData>";
}

std::string Factors(const Strings& fieldsAndValues, const std::string& kind = "") {
    std::string text;
    for (std::size_t i = 0; i + 1 < fieldsAndValues.size(); i += 2) {
        text += Column("feature='fields' field='" + fieldsAndValues[i] + "'", fieldsAndValues[i + 1]);
    }
    return "<CoordinatesGroup description='" + kind + "'>" + text + "</CoordinatesGroup>";
}

std::string Figures(const Strings& statistics, const std::string& values) {
    std::string text;
    for (const std::string& statistic : statistics) text += Column("statistic='" + statistic + "'", values);
    return text;
}

const Strings kMeans = {"mean", "stdErr", "confIntervalLower", "confIntervalUpper"};
const Strings kContrasts = {"contrastEstimate",  "stdErr",           "tTest", "df", "adjustedSig",
                            "confIntervalLower", "confIntervalUpper"};
const std::string kOneMean = Table("estimates", Factors({"a", "1"}), Figures(kMeans, "1"));
const std::string kRequestOfA = MeansRequest({"a"}, "a");
const std::string kTwoFactors = MeansRequest({"a", "b"}, "b", {"0", "1"});

std::string Predictor(const std::string& field, const std::string& value) {
    return "<PrintableList pattern='" + field + "'><PrintableList pattern='" + value + "'/></PrintableList>";
}

std::string Label(const std::string& predictors) {
    return "<Label><PrintableList>" + predictors + "</PrintableList></Label>";
}

const TableCase kFrames[] = {
    {"no blocks", {.fStatistics = "<Statistic name='grandMean' value='1'/>"}, "GrandMeans", ""},
    {"a block without index, one refused and one that answers no request",
     {.fSettings = Settings(Requests(kRequestOfA + kTwoFactors)),
      .fDiagnostics = Block("", kOneMean) + Block("1", kOneMean + Message("kGLMM_C25")) + Block("2", kOneMean)},
     "",
     R"(
heading Covariance Parameters
heading EMMEANS Effect ^1 block ^2 ...('a(Level)'; 2N)
message 2 2 EMMEANS 2: kGLMM_C25
)",
     "a block of means is left out: it answers request 3 of 2\n"},
    {"grand means with a warning for twenty blocks, which are less",
     {.fSettings = Settings(Requests(kRequestOfA) + Parameter("UseTrials", "true") + Parameter("TrialsField", "n")),
      .fStatistics = "<Statistic name='grandMean' value='1'/><Statistic name='grandMeanStdErr' value='2'/>"
                     "<Statistic name='grandMeanCIUpper' value='4'/>",
      .fDiagnostics = Block("", kOneMean),
      .fTraining = Message("kGLMM_C24")},
     "GrandMeans",
     R"(
table 'GrandMeans' EMMEANS Grand Mean ...()
note Target ^1/^2(<y/1>; <n/1>)
columns 1 -name Statistics: Mean, Std. Error, ^1% Confidence Interval(95D){Lower, Upper}
: 1C 2C .C 4C
)"},
};

TEST(MeansFrame, IsIssued) { CheckTables(kFrames); }

TEST(MeansFrame, CaptionsGrandMeansOfTwentyBlocks) {
    Sample sample;
    sample.fSettings += Requests(kRequestOfA);
    sample.fTraining = Message("kGLMM_C24");
    for (int nBlocks = 1; nBlocks <= 20; ++nBlocks) {
        sample.fDiagnostics += Block("", kOneMean);
        ProcedureRun run(SamplePmml());
        ASSERT_TRUE(run.Run(sample.Text()));
        const bool hasCaption = DrawItems(run.GetDocument().fItems).find("caption kGLMM_C24") != std::string::npos;
        EXPECT_EQ(hasCaption, nBlocks == 20);
    }
}

const TableCase kEstimates[] = {
    {"two factors and two predictors",
     {.fSettings = Settings(Requests(kTwoFactors)),
      .fDiagnostics = Block("0", Label(Predictor("x", "1.5") + Predictor("y", "2")) +
                                     Table("estimates", Factors({"a", "1 2", "b", "lo hi"}),
                                           Figures({"mean", "confIntervalLower"}, "1 2") +
                                               Figures({"stdErr", "confIntervalUpper"}, "__MISSING__ 4")))},
     "Estimates",
     R"(
table 'Estimates' Estimates
caption Continuous predictors fixed at [%1=%2:,^1=^2:]1([<x/0>; <x=1.5/2>; <y/0>; <y=2/2>])
rows 2 <a/1>: <a=1/2>, <a=2/2>
rows 1 <b/1>: <b=lo/2>, <b=hi/2>
columns 1 -name Statistics: Mean, Std. Error, ^1% Confidence Interval(95D){Lower, Upper}
<a=1/2> | <b=lo/2>: 1C .C 1C .C
<a=2/2> | <b=hi/2>: 2C 4C 2C 4C
)"},
    {"columns of uneven length and a level that is no number",
     {.fSettings = Settings(Requests(kTwoFactors)),
      .fDiagnostics =
          Block("0", Label(Predictor("z", "1")) +
                         Table("estimates", Factors({"a", "1 two", "b", "lo hi lo"}), Figures({"mean"}, "1")))},
     "Estimates",
     R"(
table 'Estimates' Estimates
rows 2 <a/1>: <a=1/2>, <a=./2>
rows 1 <b/1>: <b=lo/2>, <b=hi/2>
columns 1 -name Statistics: Mean, ^1% Confidence Interval(95D){}
<a=1/2> | <b=lo/2>: 1C
)",
     "table \"Estimates\" of request 1 for means: rows are left out, since the factor columns have from 2 to 3 values\n"
     "table \"Estimates\" of request 1 for means: column \"Mean\" has 1 figures for 2 rows\n"},
    {"other factors than the effect's",
     {.fSettings = Settings(Requests(kTwoFactors)), .fDiagnostics = Block("0", kOneMean)},
     "Estimates",
     "",
     "table \"Estimates\" of request 1 for means is left out: its factor columns are not those of the effect\n"},
    {"a factor that the data lacks",
     {.fSettings = Settings(Requests(kRequestOfA)),
      .fDiagnostics = Block("0", Table("estimates", Factors({"z", "1"}), Figures(kMeans, "1")))},
     "Estimates",
     "",
     "table \"Estimates\" of request 1 for means is left out: its factor \"z\" is not in the data\n"},
};

TEST(Estimates, AreIssued) { CheckTables(kEstimates); }

std::string Contrasts(const std::string& kind, const Strings& factors) {
    return kOneMean + Table("contrasts", Factors(factors, kind), Figures(kContrasts, "0.5"));
}

const TableCase kContrastTables[] = {
    {"pairwise contrasts of one factor",
     {.fSettings = Settings(Requests(kRequestOfA) + Parameter("pAdjustment", "SEQBONFERRONI")),
      .fDiagnostics = Block("0", Contrasts("pairwiseContrast", {"a", "1", "a", "2"}))},
     "Contrasts",
     R"(
table 'Contrasts' Pairwise Contrasts
caption [%1:
^1:]1([Sequential Bonferroni significance adjust; Confidence interval bounds are approximate.])
by itself ^1 Pairwise Contrasts(<a/1>): ^1 - ^2(<a=1/2>; <a=2/2>)
columns 1 -name Statistics: Contrast Estimate, Std. Error, t, df, Adj. Sig., ^1% Confidence Interval(95D){Lower, Upper}
^1 - ^2(<a=1/2>; <a=2/2>): 0.5C 0.5C 0.5C 0.5N 0.5C 0.5C 0.5C
)"},
    {"deviation contrasts among three factors",
     {.fSettings = Settings(Requests(MeansRequest({"a", "t", "b"}, "t")) + Parameter("pAdjustment", "LSD")),
      .fDiagnostics = Block(
          "0", kOneMean + Table("contrasts", Factors({"a", "1", "b", "hi", "t", "2", "t", ""}, "deviationContrast"),
                                Figures({"contrastEstimate"}, "__MISSING__")))},
     "Contrasts",
     R"(
table 'Contrasts' Deviation Contrasts
caption Least Significant significance adjust
rows 3 <a/1>: <a=1/2>
rows 2 <b/1>: <b=hi/2>
by itself ^1 Deviation Contrasts(<t/1>): ^1 - ^2(<t=2/2>; Mean)
columns 1 -name Statistics: Contrast Estimate, ^1% Confidence Interval(95D){}
<a=1/2> | <b=hi/2> | ^1 - ^2(<t=2/2>; Mean): .C
)"},
    {"simple contrasts without adjustment and rows",
     {.fSettings = Settings(Requests(kRequestOfA)),
      .fDiagnostics = Block(
          "0", kOneMean + Table("contrasts", Factors({"a", "", "a", ""}, "simpleContrast"), Figures(kContrasts, "")))},
     "Contrasts",
     R"(
table 'Contrasts' Simple Contrasts
by itself ^1 Simple Contrasts(<a/1>): 
columns 1 -name Statistics: 
)"},
    {"contrasts of no kind",
     {.fSettings = Settings(Requests(kRequestOfA)), .fDiagnostics = Block("0", Contrasts("", {"a", "1", "a", "2"}))},
     "Contrasts",
     "",
     "table \"Contrasts\" of request 1 for means is left out: it does not say which kind of contrasts it holds\n"},
    {"refused contrasts",
     {.fSettings = Settings(Requests(kRequestOfA)),
      .fDiagnostics =
          Block("0", Contrasts("simpleContrast", {"a", "1", "a", "2"}) + Message("kGLMM_C19_1", {"5"}) +
                         "<ModelTestStats><FTest fStatistic='1' sig='2' df1='3' df2='4'/></ModelTestStats>")},
     "",
     R"(
heading Covariance Parameters
heading EMMEANS Effect ^1 ...('a')
message 2 2 EMMEANS 1: kGLMM_C19_1
)"},
    {"refused contrasts without parameter",
     {.fSettings = Settings(Requests(kRequestOfA)),
      .fDiagnostics = Block("0", Contrasts("simpleContrast", {"a", "1", "a", "2"}) + Message("kGLMM_C19_1"))},
     "Contrasts",
     "",
     "table \"Contrasts\" of request 1 for means: the message that refuses it has 0 parameters, not one\n"},
    {"no compare factor",
     {.fSettings = Settings(Requests(MeansRequest({"a"}, ""))),
      .fDiagnostics = Block("0", Contrasts("pairwiseContrast", {"a", "1", "a", "2"}))},
     "Contrasts",
     "",
     "table \"Contrasts\" of request 1 for means is left out: not the last two of its factor columns are those of the "
     "compare factor \"\"\n"},
    {"fewer factors than the effect has",
     {.fSettings = Settings(Requests(kTwoFactors)),
      .fDiagnostics = Block("0", Contrasts("pairwiseContrast", {"b", "lo", "b", "hi"}))},
     "Contrasts",
     "",
     "table \"Contrasts\" of request 1 for means is left out: its factor columns are not those of the effect\n"},
};

TEST(Contrasts, AreIssued) { CheckTables(kContrastTables); }

std::string Test(const std::string& segment, const std::string& f) {
    return "<ModelTestStats>" + segment + "<FTest fStatistic='" + f + "' sig='' df1='1' df2='2.5'/></ModelTestStats>";
}

const TableCase kTests[] = {
    {"three factors, and a test of other fields",
     {.fSettings = Settings(Requests(MeansRequest({"a", "t", "b"}, "t"))),
      .fDiagnostics =
          Block("0", kOneMean + Test(Segment({"a", "1", "b", "lo"}), "4") + Test(Segment({"a", "1"}), "5"))},
     "OverallTestResults",
     R"(
table 'OverallTestResults' Overall Test Results
rows 2 <a/1>: <a=1/2>
rows 1 <b/1>: <b=lo/2>
columns 1 -name Statistics: F, df1, df2, Sig.
<a=1/2> | <b=lo/2>: 4C 1N 2.5N .C
)",
     "table \"Overall Test Results\" of request 1 for means: a test is left out, since its fields are not those of the "
     "first test\n"},
    {"a test of the compare factor",
     {.fSettings = Settings(Requests(kTwoFactors)),
      .fDiagnostics = Block("0", kOneMean + Test(Segment({"b", "lo"}), "4"))},
     "OverallTestResults",
     "",
     "table \"Overall Test Results\" of request 1 for means is left out: its fields are not the effect's factors "
     "without "
     "the compare factor\n"},
};

TEST(OverallTestResults, AreIssued) { CheckTables(kTests); }

}  // namespace
}  // namespace hierfit::test
