#include <gtest/gtest.h>

#include <tuple>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {
namespace {

std::string Distribution(const std::string& name, const std::string& more = "") {
    return kSettings + Parameter("DistributionOfTarget", name) + more;
}

std::string Test(const std::string& description, const std::string& f, const std::string& sig) {
    return Tag("ModelTestStats description='" + description + "'",
               "<FTest fStatistic='" + f + "' df1='1' df2='10' sig='" + sig + "'/>");
}

const std::string kModel = Test("correctedModel", "2.5", "0.25");
const std::string kIndex = "<Statistic name='fixedEffectIndex' value='0'/>";
const std::string kOneEffect = kSettings + List("FixedEffectList", Effect({"a"}));

const TableCase kEffects[] = {
    // Nested, crossed and empty effects.
    {{.fSettings =
          kSettings + List("FixedEffectList", Effect({"a"}) + Effect({"a", "b", "t"}, {"0", "1", "0"}) + Effect({})),
      .fDiagnostics = kModel + Test("fixedEffect", "3", "0.5") + Test("fixedEffect", "", "") + Test("other", "7", "7") +
                      "<ModelTestStats description='fixedEffect'/>"},
     R"(
table Fixed Effects
caption Probability Distribution ^1, Link Function ^2 ...('Normal'; 'Identity')
note Target ^1(<y/1>)
rows 1 Source: Corrected Model, 'a', 'a(b * t)', 'Intercept'
columns 1 -name Statistics: F, df1, df2, Sig.
Corrected Model: 2.5G 1N 10N 0.25S
'a': 3G 1N 10N 0.5S
'a(b * t)': .G 1N 10N .S
'Intercept': .G .N .N .S
)"},
    // An intercept alone, a link with a parameter, fixed trials.
    {{.fSettings = kSettings + Parameter("LinkFunctionType", "POWER") + Parameter("LinkFunctionParam", "2") +
                   Parameter("UseTrials", "true") + Parameter("TrialsValue", "5"),
      .fDiagnostics = kModel},
     R"(
table Fixed Effects
caption Probability Distribution ^1, Link Function ^2 with ^3 ...('Normal'; 'Power'; 2D)
note Target ^1/^2(<y/1>; 5N)
rows 1 Source: Corrected Model * Fixed effects intercept only ...
columns 1 -name Statistics: F, df1, df2, Sig.
Corrected Model: 2.5G 1N 10N 0.25S
)"},
    {{.fSettings = kSettings + Parameter("Intercept", "false"), .fDiagnostics = kModel}, ""},
    {{.fSettings = kOneEffect, .fDiagnostics = kModel},
     R"(table "Fixed Effects" is left out: there are 0 tests for 1 effects)"},
    {{}, R"(table "Fixed Effects" is left out: there are no tests)"},
    {{.fTraining = Message("k")}, ""},
};

TEST(FixedEffects, AreIssued) { CheckTables("FixedEffects", "table \"Fixed Effects\"", kEffects); }

std::string Threshold(const std::string& factors) {
    return Tag("RegressionParameter isIntercept='false' name=''", factors);
}

std::string Nominal(const std::string& category, const std::string& estimate) {
    return Estimates("fixed", Segment({"r", category}) + Estimate("x", {estimate}));
}

const Strings kFigures = {"0.5", "0.1", "-1", "1", "2", "3", "0.05"};

const TableCase kCoefficients[] = {
    // Thresholds of an ordinal target, and a redundant coefficient that has an exponent.
    {{.fSettings =
          Parameter("TargetField", "t") + Parameter("DistributionOfTarget", "ORDINAL") + Parameter("CIn", "0.9"),
      .fTraining =
          Estimates("fixed", Estimate("T1", kFigures, Threshold("<Factor field='t' value='1'/>")) +
                                 Estimate("T2", {"1"}, Threshold("")) + Estimate("x", kFigures, kIndex, "8", "true"))},
     R"(
table Fixed Coefficients
caption Probability Distribution ^1, Link Function ^2 ...('Multinomial'; 'Unknown')
note Target ^1(<t/1>)
rows 1 Model Term: Threshold for ^1=(<t/1>){<t=1/0>}, 'x'
columns 1 -name Statistics: Coefficient, Std. Error, t, Sig., ^1% Confidence Interval(90D){Lower, Upper}, Exp(Coefficient), ^1% Confidence Interval for Exp(Coefficient)(90D){Lower, Upper}
Threshold for ^1=(<t/1>)/<t=1/0>: 0.5C 0.1E 2G 0.05S -1C 1C _ _ _
'x': 0N * Redundant coefficient, zero ... .E .G .S .C .C .C .C .C
table "Fixed Coefficients": the threshold "T2" is left out, since it names no category of the target
)"},
    // A nominal target with trials.
    {{.fSettings = Distribution("NOMINAL", Parameter("TargetField", "r") + Parameter("UseTrials", "true")),
      .fTraining = Nominal("no", "1") + Nominal("yes", "2")},
     R"(
table Fixed Coefficients
caption Probability Distribution ^1, Link Function ^2 ...('Multinomial'; Unknown)
note Target ^1(<r/1>)
rows 1 Model Term: 'x'
rows 2 <r/2>: <r=no/2>, <r=yes/2>
columns 1 -name Statistics: Coefficient, Std. Error, t, Sig., ^1% Confidence Interval(95D){Lower, Upper}
'x' | <r=no/2>: 1C .E .G .S .C .C
'x' | <r=yes/2>: 2C .E .G .S .C .C
)"},
    {{.fTraining = Sample().fTraining + Sample().fTraining},
     R"(table "Fixed Coefficients" is left out: there are 2 sets of coefficients, not one)"},
    {{.fTraining = Message("k")}, ""},
};

TEST(FixedCoefficients, AreIssued) { CheckTables("FixedCoefficients", "table \"Fixed Coefficients\"", kCoefficients); }

std::string Messages(const Strings& keys) {
    std::string text;
    for (const std::string& key : keys) text += Message(key);
    return text;
}

std::string Residual(const std::string& segment, const std::string& label, const std::string& isRedundant = "false") {
    return Estimates("repeated", segment + Estimate("p", kFigures, Printable(label), "", isRedundant));
}

std::string Random(const std::string& block, const std::string& segment, const std::string& printable) {
    return Estimates("random' block='" + block, segment + Estimate("p", kFigures, printable));
}

const std::string kBlock = RandomBlock({}, Effect({"a"}));
const std::string kGrouped = RandomBlock({Effect({"x"})}, Effect({}), {"a"}, "DIAG");
const std::string kOneBlock = List("RandomSpecs", kBlock);
const std::string kGroupSpec = Tag("Parameter name='ResidualGroupSpec'", "<ListValue><Value value='a'/></ListValue>");

const TableCase kResiduals[] = {
    // A plain residual with warnings of the caption.
    {{.fSettings = kSettings + Parameter("ResidualCovarianceType", "AR1") +
                   Tag("Parameter name='ResidualSubjectSpec'", Effect({"a", "b"}, {"0", "1"})),
      .fTraining = Residual("", "Variance ") + Messages({"kGLMM_C28", "kGLMM_C23", "kGLMM_C18", "kGLMM_C10"})},
     R"(
table Residual Effect
caption Covariance Structure ^1 Subject Specification ^2 ...('First-order autoregressive'; 'a(b)'; [kGLMM_C18; kGLMM_C23; kGLMM_C28])
rows 1 Residual Effect: 'Variance ' * This is the scale parameter.
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'Variance ': 0.5C * kGLMM_C10 0.1C 3C 0.05S -1C 1C
)"},
    // A redundant parameter of an ordinal target.
    {{.fSettings = Distribution("ORDINAL", Parameter("ResidualCovarianceType", "ID")),
      .fTraining = Residual("", "Variance", "true") + Messages({"kGLMM_C23", "kGLMM_C9"})},
     R"(
table Residual Effect
caption Covariance Structure ^1 ...('Scaled Identity')
rows 1 Residual Effect: 'Variance'
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'Variance': 0.5C * Parameter redundant .C .C .S .C .C
)"},
    // A scale that is fixed, by two grouping fields.
    {{.fSettings = Distribution("POISSON", kGroupSpec),
      .fTraining = Residual(Segment({"a", "1", "b", "lo"}), "v", "true") + Residual(Segment({"a", "2"}), "v") +
                   Messages({"kGLMM_C8", "kGLMM_C9", "kGLMM_C10"})},
     R"(
table Residual Effect
caption Covariance Structure ^1 ...('Unknown')
rows 1 Residual Effect: 'v'
rows 2 Grouping: EffectVar2([<a/2>; <a=1/2>; <b/2>; <b=lo/2>]), EffectVar1([<a/2>; <a=2/2>])
columns 1 -name 'Residual Effect Covariance Column': Estimate, ^1% Confidence Interval(95D){}
'v' | EffectVar2([<a/2>; <a=1/2>; <b/2>; <b=lo/2>]): 1C * Parameter redundant * kGLMM_C9
'v' | EffectVar1([<a/2>; <a=2/2>]): 1C * kGLMM_C9
)"},
    {{}, R"(table "Residual Effect" is left out: there are 0 sets of residual parameters, not one)"},
    {{.fSettings = kSettings + kGroupSpec},
     R"(table "Residual Effect" is left out: there are 0 sets of residual parameters, not one or more)"},
};

TEST(ResidualEffect, IsIssued) { CheckTables("ResidualEffect", "table \"Residual Effect\"", kResiduals); }

/// What conditions of the fit leave of the figures, for every family of distributions.
TEST(CovarianceParameterRows, AreOverriddenByConditionsOfTheFit) {
    const char* const kAll = "0.5C 0.1C 3C 0.05S -1C 1C\n";
    const char* const kZero = "0C 0C 0C 0C\n";
    const char* const kScale = "1C * kGLMM_C9\n";
    // The cells of a residual and of a random effect.
    const std::tuple<const char*, Strings, const char*, const char*> cases[] = {
        {"NORMAL", {"kGLMM_C8"}, kAll, kZero},
        {"GAMMA", {"kGLMM_C8"}, kAll, kZero},
        {"IGAUSS", {"kGLMM_C8"}, kAll, kZero},
        {"BINOMIAL", {"kGLMM_C8"}, kAll, kAll},
        {"ORDINAL", {"kGLMM_C8"}, kAll, kAll},
        {"BINOMIAL", {"kGLMM_C9"}, kScale, kZero},
        {"NEGBIN", {"kGLMM_C9"}, kScale, kZero},
        {"POISSON", {"kGLMM_C9", "kGLMM_C8"}, kScale, kZero},
        {"NORMAL", {"kGLMM_C9", "kGLMM_C8"}, kAll, kAll},
        {"ORDINAL", {"kGLMM_C9"}, kAll, kAll},
        {"BINOMIAL", {"kGLMM_C9", "kGLMM_C10"}, kScale, "0C * kGLMM_C10 0C 0C 0C\n"},
    };
    for (const auto& [distribution, keys, residual, random] : cases) {
        SCOPED_TRACE(std::string(distribution) + " " + Messages(keys));
        Sample sample;
        sample.fSettings = Distribution(distribution, kOneBlock);
        sample.fTraining =
            Residual("", "Variance ") + Random("0", "", Printable("VarOfEffect", {"0"})) + Messages(keys);
        ProcedureRun run;
        EXPECT_TRUE(run.Run(sample.Text()));
        for (const auto& [subtype, cells] :
             {std::pair{"ResidualEffect", residual}, std::pair{"CovarianceParameters", random}}) {
            const std::string drawn = Draw(run.GetItems(), subtype);
            EXPECT_EQ(drawn.substr(drawn.rfind("': ") + 3), cells);
        }
    }
}

std::string Labels(const Strings& labels) { return Join(labels, "<Label><PrintableList pattern='", "'/></Label>"); }

/// The matrix of a segment; fields and values of the segment.
std::string Block(const Strings& segment, const std::string& attributes, const std::string& array) {
    return Tag("SegmentData", Segment(segment) + Matrix(attributes, array));
}

const std::string kNominal = Distribution("NOMINAL", Parameter("TargetField", "r") + kOneBlock);

const TableCase kMatrices[] = {
    // Two blocks, the second by groups, of which one lacks a column and one a row.
    {{.fSettings = kSettings + List("RandomSpecs", kBlock + kGrouped),
      .fDiagnostics = Covariances(Labels({"x"}), Block({}, "nbRows='1'", "1") + Block({}, "nbRows='1'", "1")) +
                      Covariances(Labels({"x", "y"}), Block({"a", "1"}, "nbRows='2'", "3 4 5 6") +
                                                          Block({"a", "2"}, "nbRows='2' nbCols='1'", "1 2"))},
     R"(
table Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: x, y
rows 2 Grouping: EffectVar1([<a/2>; <a=1/2>])
columns 1 -name Random Effect Block Column: x, y
x | EffectVar1([<a/2>; <a=1/2>]): 3G 4G
y | EffectVar1([<a/2>; <a=1/2>]): 5G 6G
table "Random Effect Covariances" of random effect block 1 is left out: there are 2 sets of parameters, not one
table "Random Effect Covariances" of random effect block 2: matrix 2 is left out, since it is smaller than its labels
)"},
    // Categories of a nominal target.
    {{.fSettings = kNominal,
      .fDiagnostics =
          Covariances(Labels({"x"}), Block({"r", "yes"}, "nbRows='1'", "3") + Block({}, "nbRows='1'", "4"))},
     R"(
table Random Effect Block ^1(1N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a)
rows 1 Random Effect Block: x
rows 2 <r/2>: <r=yes/2>
columns 1 -name Random Effect Block Column: x
x | <r=yes/2>: 3G
table "Random Effect Covariances" of random effect block 1: a target category is left out, since 0 values stand for it
)"},
};

TEST(RandomEffectCovariances, AreIssued) {
    CheckTables("RandomEffects", "table \"Random Effect Covariances\"", kMatrices);
}

const TableCase kRandoms[] = {
    // A block by groups behind one without parameters.
    {{.fSettings = kSettings + List("RandomSpecs", kBlock + kGrouped),
      .fTraining = Random("1", Segment({"a", "3"}), Printable("UN (^1,^2)", {"1", "1"})) + Message("kGLMM_C10")},
     R"(
table Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: 
rows 2 Grouping: 
columns 1 -name 'Random Effect Covariance Column': 
table Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: 'UN (1,1)'
rows 2 Grouping: EffectVar1([<a/2>; <a=3/2>])
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'UN (1,1)' | EffectVar1([<a/2>; <a=3/2>]): 0.5C * kGLMM_C10 0.1C 3C 0.05S -1C 1C
)"},
    // The only block, of a nominal target.
    {{.fSettings = kNominal,
      .fTraining = Random("0", Segment({"r", "no"}), Printable("v")) + Messages({"kGLMM_C9", "kGLMM_C28"})},
     R"(
table Random Effect
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a; [kGLMM_C28])
rows 1 Random Effect Covariance: 'v'
rows 2 <r/2>: <r=no/2>
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, ^1% Confidence Interval(95D){Lower, Upper}
'v' | <r=no/2>: 0C 0C 0C 0C
)"},
};

TEST(RandomEffect, IsIssued) { CheckTables("CovarianceParameters", "table \"Random Effect\"", kRandoms); }

}  // namespace
}  // namespace hierfit::test
