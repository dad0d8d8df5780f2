#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {
namespace {

std::string Requests(const std::string& requests) { return kSettings + List("EMMEANS", requests); }

std::string Block(const std::string& index, const std::string& content) {
    return Tag("DataGroup description='customEmmeans'",
               "<Statistic name='EMMEANSIndex' value='" + index + "'/>" + content);
}

std::string Table(const std::string& description, const std::string& factors, const std::string& figures) {
    return Tag("MultivariateData description='" + description + "'", factors + figures);
}

std::string Factors(const Strings& fieldsAndValues, const std::string& kind = "") {
    std::string text;
    for (std::size_t i = 0; i + 1 < fieldsAndValues.size(); i += 2) {
        text += Column("feature='fields' field='" + fieldsAndValues[i] + "'", fieldsAndValues[i + 1]);
    }
    return Group(kind, text);
}

std::string Figures(const Strings& statistics, const std::string& values) {
    std::string text;
    for (const std::string& statistic : statistics) text += Column("statistic='" + statistic + "'", values);
    return text;
}

const Strings kMeans = {"mean", "stdErr", "confIntervalLower", "confIntervalUpper"};
const std::string kOneMean = Table("estimates", Factors({"a", "1"}), Figures(kMeans, "1"));
const std::string kRequestOfA = MeansRequest({"a"}, "a");
const std::string kTwoFactors = MeansRequest({"a", "b"}, "b", {"0", "1"});

/// A request for the means of "a" and for contrasts of its levels.
std::string Wanted(const std::string& contrasts) {
    return Tag("StructuredValue", Attribute("Factors", Effect({"a"}, {"0"})) +
                                      "<Attribute name='EstimateMeans' value='true'/>"
                                      "<Attribute name='CompareFactor' value='a'/>"
                                      "<Attribute name='ContrastType' value='" +
                                      contrasts + "'/>");
}

const TableCase kFrames[] = {
    // A block without index, one refused and one that answers no request.
    {{.fSettings = Requests(kRequestOfA + kTwoFactors),
      .fDiagnostics = Block("", kOneMean) + Block("1", kOneMean + Message("kGLMM_C25")) + Block("2", kOneMean)},
     R"(
heading Covariance Parameters
heading EMMEANS Effect ^1 block ^2 ...('a(Level)'; 2N)
message 2 2 EMMEANS 2: kGLMM_C25
a block of means is left out: it answers request 3 of 2
)"},
    // Refused contrasts.
    {{.fSettings = Requests(kRequestOfA),
      .fDiagnostics = Block(
          "0", kOneMean + Table("contrasts", Factors({"a", "1", "a", "2"}, "simpleContrast"), Figures({"df"}, "1")) +
                   Message("kGLMM_C19_1", {"5"}))},
     R"(
heading Covariance Parameters
heading EMMEANS Effect ^1 ...('a')
message 2 2 EMMEANS 1: kGLMM_C19_1
)"},
};

TEST(MeansFrame, IsIssued) { CheckTables("", "a block of means", kFrames); }

const TableCase kUnanswered[] = {
    {{.fSettings = Requests(Wanted("None") + kRequestOfA + Wanted("None") + kRequestOfA),
      .fDiagnostics = Block("2", kOneMean)},
     "request 1 for means is left out: no block of means answers it"},
    // Nobody knows which request a block without index answers.
    {{.fSettings = Requests(Wanted("None")), .fDiagnostics = Block("", kOneMean)}, ""},
};

TEST(MeansFrame, TellsRequestsWithoutAnswer) { CheckTables("no table", "request", kUnanswered); }

TEST(MeansFrame, CaptionsGrandMeansOfTwentyBlocks) {
    Sample sample{.fSettings = Requests(kRequestOfA), .fTraining = Message("kGLMM_C24")};
    for (int nBlocks = 1; nBlocks <= 20; ++nBlocks) {
        sample.fDiagnostics += Block("", kOneMean);
        ProcedureRun run;
        ASSERT_TRUE(run.Run(sample.Text()));
        const bool hasCaption = Draw(run.GetItems(), "GrandMeans").find("caption kGLMM_C24") != std::string::npos;
        EXPECT_EQ(hasCaption, nBlocks == 20);
    }
}

const TableCase kEstimates[] = {
    // Columns of uneven length, a level that is no number, a predictor that the data lacks behind its first field. The
    // last column of a statistic counts.
    {{.fSettings = Requests(kTwoFactors),
      .fDiagnostics = Block("0", Tag("Label", Tag("PrintableList", Printable("y", {"2"}) + Printable("z", {"1"}))) +
                                     Table("estimates", Factors({"a", "1 two", "b", "lo hi lo"}),
                                           Figures({"mean"}, "9 9") + Figures({"mean"}, "1") +
                                               Figures({"confIntervalUpper"}, "__MISSING__ 2")))},
     R"(
table Estimates
caption Continuous predictors fixed at [%1=%2:,^1=^2:]1([<y/0>; <y=2/2>])
rows 2 <a/1>: <a=1/2>, <a=./2>
rows 1 <b/1>: <b=lo/2>, <b=hi/2>
columns 1 -name Statistics: Mean, ^1% Confidence Interval(95D){Upper}
<a=1/2> | <b=lo/2>: 1C .C
<a=./2> | <b=hi/2>: _ 2C
table "Estimates" of request 1 for means: rows are left out, since the factor columns have from 2 to 3 values
table "Estimates" of request 1 for means: column "Mean" has 1 figures for 2 rows
table "Estimates" of request 1 for means: column "Std. Error" has 0 figures for 2 rows
table "Estimates" of request 1 for means: column "Lower" has 0 figures for 2 rows
)"},
    {{.fSettings = Requests(kTwoFactors), .fDiagnostics = Block("0", kOneMean)},
     R"(table "Estimates" of request 1 for means is left out: its factor columns are not those of the effect)"},
};

TEST(Estimates, AreIssued) { CheckTables("Estimates", "table \"Estimates\"", kEstimates); }

std::string Contrasts(const Strings& factors, const std::string& kind = "pairwiseContrast") {
    const Strings figures = {"stdErr", "tTest", "df", "adjustedSig", "confIntervalLower", "confIntervalUpper"};
    return Block("0", kOneMean + Table("contrasts", Factors(factors, kind),
                                       Figures({"contrastEstimate"}, "__MISSING__") + Figures(figures, "1")));
}

const TableCase kContrastTables[] = {
    // Wanted, and not there; a message stands in for them.
    {{.fSettings = Requests(Wanted("Deviation")), .fDiagnostics = Block("0", kOneMean)},
     R"(table "Contrasts" of request 1 for means is left out: the block has no contrasts)"},
    {{.fSettings = Requests(Wanted("Deviation")), .fDiagnostics = Block("0", kOneMean + Message("kGLMM_C20"))}, ""},
    // Deviation contrasts among three factors.
    {{.fSettings = Requests(MeansRequest({"a", "t", "b"}, "t")) + Parameter("pAdjustment", "LSD"),
      .fDiagnostics = Contrasts({"a", "1", "b", "hi", "t", "2", "t", ""}, "deviationContrast")},
     R"(
table Deviation Contrasts
caption Least Significant significance adjust
rows 3 <a/1>: <a=1/2>
rows 2 <b/1>: <b=hi/2>
by itself ^1 Deviation Contrasts(<t/1>): ^1 - ^2(<t=2/2>; Mean)
columns 1 -name Statistics: Contrast Estimate, Std. Error, t, df, Adj. Sig., ^1% Confidence Interval(95D){Lower, Upper}
<a=1/2> | <b=hi/2> | ^1 - ^2(<t=2/2>; Mean): .C 1C 1C 1N 1C 1C 1C
)"},
    {{.fSettings = Requests(MeansRequest({"a"}, "")), .fDiagnostics = Contrasts({"a", "1", "a", "2"})},
     R"(table "Contrasts" of request 1 for means is left out: )"
     R"(not the last two of its factor columns are those of the compare factor "")"},
};

TEST(Contrasts, AreIssued) { CheckTables("Contrasts", "table \"Contrasts\"", kContrastTables); }

std::string Test(const Strings& segment, const std::string& f) {
    return Tag("ModelTestStats", Segment(segment) + "<FTest fStatistic='" + f + "' sig='' df1='1' df2='2.5'/>");
}

const TableCase kTests[] = {
    // Three factors, and a test of other fields.
    {{.fSettings = Requests(MeansRequest({"a", "t", "b"}, "t")),
      .fDiagnostics = Block("0", kOneMean + Test({"a", "1", "b", "lo"}, "4") + Test({"a", "1"}, "5"))},
     R"(
table Overall Test Results
rows 2 <a/1>: <a=1/2>
rows 1 <b/1>: <b=lo/2>
columns 1 -name Statistics: F, df1, df2, Sig.
<a=1/2> | <b=lo/2>: 4C 1N 2.5N .C
)"
     R"(table "Overall Test Results" of request 1 for means: a test is left out, )"
     R"(since its fields are not those of the first test)"},
    {{.fSettings = Requests(kTwoFactors), .fDiagnostics = Block("0", kOneMean + Test({"b", "lo"}, "4"))},
     R"(table "Overall Test Results" of request 1 for means is left out: )"
     R"(its fields are not the effect's factors without the compare factor)"},
};

TEST(OverallTestResults, AreIssued) { CheckTables("OverallTestResults", "table \"Overall Test Results\"", kTests); }

}  // namespace
}  // namespace hierfit::test
