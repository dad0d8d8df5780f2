#include <gtest/gtest.h>

#include "tests/hierfit/TableCase.h"

namespace hierfit::test {
namespace {

std::string Settings(const std::string& more) { return Sample().fSettings + more; }

std::string Effects(const std::string& effects) { return ParameterOf("FixedEffectList", List(effects)); }

std::string Test(const std::string& description, const std::string& f, const std::string& df, const std::string& sig) {
    return "<ModelTestStats description='" + description + "'><FTest fStatistic='" + f + "' df1='" + df +
           "' df2='10' sig='" + sig + "'/></ModelTestStats>";
}

const std::string kModel = Test("correctedModel", "2.5", "1", "0.25");

const std::string kIndex = "<Statistic name='fixedEffectIndex' value='0'/>";

const TableCase kEffects[] = {
    {"nested, crossed and empty effects",
     {.fSettings = Settings(Effects(Effect({"a"}) + Effect({"a", "b", "t"}, {"0", "1", "0"}) + Effect({}))),
      .fDiagnostics = kModel + Test("fixedEffect", "3", "1", "0.5") + Test("fixedEffect", "", "", "") +
                      Test("other", "7", "7", "7") + "<ModelTestStats description='fixedEffect'/>"},
     "FixedEffects",
     R"(
table 'FixedEffects' Fixed Effects
caption Probability Distribution ^1, Link Function ^2 ...('Normal'; 'Identity')
note Target ^1(<y/1>)
rows 1 Source: Corrected Model, 'a', 'a(b * t)', 'Intercept'
columns 1 -name Statistics: F, df1, df2, Sig.
Corrected Model: 2.5G 1N 10N 0.25S
'a': 3G 1N 10N 0.5S
'a(b * t)': .G .N 10N .S
'Intercept': .G .N .N .S
)"},
    {"an intercept alone, a link with a parameter, fixed trials",
     {.fSettings = Settings(Parameter("LinkFunctionType", "POWER") + Parameter("LinkFunctionParam", "2") +
                            Parameter("UseTrials", "true") + Parameter("TrialsValue", "5")),
      .fDiagnostics = kModel},
     "FixedEffects",
     R"(
table 'FixedEffects' Fixed Effects
caption Probability Distribution ^1, Link Function ^2 with ^3 ...('Normal'; 'Power'; 2D)
note Target ^1/^2(<y/1>; 5N)
rows 1 Source: Corrected Model * Fixed effects intercept only ...
columns 1 -name Statistics: F, df1, df2, Sig.
Corrected Model: 2.5G 1N 10N 0.25S
)"},
    {"no fixed part",
     {.fSettings = Settings(Parameter("Intercept", "false")), .fDiagnostics = kModel},
     "FixedEffects",
     ""},
    {"fewer tests than effects",
     {.fSettings = Settings(Effects(Effect({"a"}))), .fDiagnostics = kModel},
     "FixedEffects",
     "",
     "table \"Fixed Effects\" is left out: there are 0 tests for 1 effects\n"},
    {"no tests, but coefficients",
     {.fTraining = Estimates("parameterType='fixed'", "", {{"a=1", {"1"}, "", false, kIndex}})},
     "FixedEffects",
     "",
     "table \"Fixed Effects\" is left out: there are no tests\n"},
    {"nothing was fitted", {}, "FixedEffects", "", ""},
};

TEST(FixedEffects, AreIssued) { CheckTables(kEffects); }

std::string Threshold(const std::string& factors) {
    return "<RegressionParameter isIntercept='false' name=''>" + factors + "</RegressionParameter>";
}

std::string Nominal(const std::string& category, const std::vector<Estimate>& estimates) {
    return Estimates("parameterType='fixed'", Segment({"r", category}), estimates);
}

const Strings kFigures = {"0.5", "0.1", "-1", "1", "2", "3", "0.05"};

const TableCase kCoefficients[] = {
    {"a redundant coefficient, and one that has an exponent",
     {.fTraining = Estimates("parameterType='fixed'", "",
                             {{"I", kFigures, "", false, "<RegressionParameter isIntercept='true' name='i'/>"},
                              {"a=1", kFigures, "8", true, kIndex}})},
     "FixedCoefficients",
     R"(
table 'FixedCoefficients' Fixed Coefficients
caption Probability Distribution ^1, Link Function ^2 ...('Normal'; 'Identity')
note Target ^1(<y/1>)
rows 1 Model Term: 'Intercept', 'a=1'
columns 1 -name Statistics: Coefficient, Std. Error, t, Sig., ^1% Confidence Interval(95D){Lower, Upper}, Exp(Coefficient), ^1% Confidence Interval for Exp(Coefficient)(95D){Lower, Upper}
'Intercept': 0.5C 0.1E 2G 0.05S -1C 1C _ _ _
'a=1': 0N * Redundant coefficient, zero ... .E .G .S .C .C .C .C .C
)"},
    {"thresholds of an ordinal target",
     {.fSettings =
          Parameter("TargetField", "t") + Parameter("DistributionOfTarget", "ORDINAL") + Parameter("CIn", "0.9"),
      .fTraining = Estimates("parameterType='fixed'", "",
                             {{"T1", {"-1"}, "", false, Threshold("<Factor field='t' value='1'/>")},
                              {"T2", {"1"}, "", false, Threshold("")},
                              {"x", {"2"}, "", false, kIndex}})},
     "FixedCoefficients",
     R"(
table 'FixedCoefficients' Fixed Coefficients
caption Probability Distribution ^1, Link Function ^2 ...('Multinomial'; 'Unknown')
note Target ^1(<t/1>)
rows 1 Model Term: Threshold for ^1=(<t/1>){<t=1/0>}, 'x'
columns 1 -name Statistics: Coefficient, Std. Error, t, Sig., ^1% Confidence Interval(90D){Lower, Upper}
Threshold for ^1=(<t/1>)/<t=1/0>: -1C .E .G .S .C .C
'x': 2C .E .G .S .C .C
)",
     "table \"Fixed Coefficients\": the threshold \"T2\" is left out, since it names no category of the target\n"},
    {"a nominal target with trials",
     {.fSettings = Parameter("TargetField", "r") + Parameter("DistributionOfTarget", "NOMINAL") +
                   Parameter("LinkFunctionType", "LOGIT") + Parameter("UseTrials", "true") + Parameter("CIn", "0.95"),
      .fTraining = Nominal("no", {{"x", {"1"}}}) + Nominal("yes", {{"x", {"2"}}})},
     "FixedCoefficients",
     R"(
table 'FixedCoefficients' Fixed Coefficients
caption Probability Distribution ^1, Link Function ^2 ...('Multinomial'; Generalized logit)
note Target ^1(<r/1>)
rows 1 Model Term: 'x'
rows 2 <r/2>: <r=no/2>, <r=yes/2>
columns 1 -name Statistics: Coefficient, Std. Error, t, Sig., ^1% Confidence Interval(95D){Lower, Upper}
'x' | <r=no/2>: 1C .E .G .S .C .C
'x' | <r=yes/2>: 2C .E .G .S .C .C
)"},
    {"two sets of one target",
     {.fTraining = Sample().fTraining + Sample().fTraining},
     "FixedCoefficients",
     "",
     "table \"Fixed Coefficients\" is left out: there are 2 sets of coefficients, not one\n"},
    {"messages alone", {.fTraining = Message("k")}, "FixedCoefficients", ""},
};

TEST(FixedCoefficients, AreIssued) { CheckTables(kCoefficients); }

}  // namespace
}  // namespace hierfit::test
