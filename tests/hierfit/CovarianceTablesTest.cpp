#include <gtest/gtest.h>

#include "tests/hierfit/TableCase.h"

namespace hierfit::test {
namespace {

std::string Settings(const std::string& more) { return Sample().fSettings + more; }

std::string WithDistribution(const std::string& distribution, const std::string& more = "") {
    return Settings(Parameter("DistributionOfTarget", distribution) + more);
}

std::string Random(const std::string& blocks) { return ParameterOf("RandomSpecs", List(blocks)); }

const Strings kFigures = {"0.5", "0.1", "-1", "1", "2", "3", "0.05"};

std::string Parameters(const std::string& attributes, const std::string& segment, const std::string& printable,
                       bool isRedundant = false) {
    return Estimates(attributes, segment, {{"p", kFigures, "", isRedundant, printable}});
}

std::string Messages(const Strings& keys) {
    std::string text;
    for (const std::string& key : keys) text += Message(key);
    return text;
}

const std::string kResidual = Parameters("parameterType='repeated'", "", Printable("Variance "));
const std::string kRandom = Parameters("parameterType='random' block='0'", "", Printable("VarOfEffect", {"0"}));
const std::string kBlock = RandomBlock("", true, Effect({"a"}));

const TableCase kSummaries[] = {
    {"no common subjects", {.fTraining = Messages({"kGLMM_C9"})}, "CovarianceParametersSummary", R"(
table 'CovarianceParametersSummary' Covariance Parameters Summary
rows 1 -name Content: Covariance Parameters{Residual Effect, Random Effects}, Design Matrix Columns{Fixed Effects, Random Effects}
Covariance Parameters/Residual Effect: -1N
Covariance Parameters/Random Effects: -1N
Design Matrix Columns/Fixed Effects: -1N
Design Matrix Columns/Random Effects: -1N
)"},
};

TEST(CovarianceParametersSummary, IsIssued) { CheckTables(kSummaries); }

const TableCase kResiduals[] = {
    {"a plain residual with warnings of the caption",
     {.fSettings = Settings(Parameter("ResidualCovarianceType", "AR1") +
                            ParameterOf("ResidualSubjectSpec", Effect({"a", "b"}, {"0", "1"}))),
      .fTraining = kResidual + Messages({"kGLMM_C28", "kGLMM_C23", "kGLMM_C18", "kGLMM_C10"})},
     "ResidualEffect",
     R"(
table 'ResidualEffect' Residual Effect
caption Covariance Structure ^1 Subject Specification ^2 ...('First-order autoregressive'; 'a(b)'; [kGLMM_C18; kGLMM_C23; kGLMM_C28])
rows 1 Residual Effect: 'Variance ' * This is the scale parameter.
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'Variance ': 0.5C * kGLMM_C10 0.1C 3C 0.05S -1C 1C
)"},
    {"a redundant parameter of an ordinal target",
     {.fSettings = WithDistribution("ORDINAL", Parameter("ResidualCovarianceType", "ID")),
      .fTraining = Parameters("parameterType='repeated'", "", Printable("Variance"), true) +
                   Messages({"kGLMM_C23", "kGLMM_C9"})},
     "ResidualEffect",
     R"(
table 'ResidualEffect' Residual Effect
caption Covariance Structure ^1 ...('Scaled Identity')
rows 1 Residual Effect: 'Variance'
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'Variance': 0.5C * Parameter redundant .C .C .S .C .C
)"},
    {"a scale that is fixed, by two grouping fields",
     {.fSettings = WithDistribution("POISSON", ParameterOf("ResidualGroupSpec", List("<Value value='a'/>"))),
      .fTraining = Parameters("parameterType='repeated'", Segment({"a", "1", "b", "lo"}), Printable("v"), true) +
                   Parameters("parameterType='repeated'", Segment({"a", "2"}), Printable("v")) +
                   Messages({"kGLMM_C8", "kGLMM_C9", "kGLMM_C10"})},
     "ResidualEffect",
     R"(
table 'ResidualEffect' Residual Effect
caption Covariance Structure ^1 ...('Unknown')
rows 1 Residual Effect: 'v'
rows 2 Grouping: EffectVar2([<a/2>; <a=1/2>; <b/2>; <b=lo/2>]), EffectVar1([<a/2>; <a=2/2>])
columns 1 -name 'Residual Effect Covariance Column': Estimate, ^1% Confidence Interval(95D){}
'v' | EffectVar2([<a/2>; <a=1/2>; <b/2>; <b=lo/2>]): 1C * Parameter redundant * kGLMM_C9
'v' | EffectVar1([<a/2>; <a=2/2>]): 1C * kGLMM_C9
)"},
    {"two sets without grouping",
     {.fTraining = kResidual + kResidual},
     "ResidualEffect",
     "",
     "table \"Residual Effect\" is left out: there are 2 sets of residual parameters, not one\n"},
    {"no set",
     {},
     "ResidualEffect",
     "",
     "table \"Residual Effect\" is left out: there are 0 sets of residual parameters, not one\n"},
};

TEST(ResidualEffect, IsIssued) { CheckTables(kResiduals); }

/// What conditions of the fit leave of the figures, for every family of distributions.
TEST(CovarianceParameterRows, AreOverriddenByConditionsOfTheFit) {
    struct Case {
        const char* fDistribution;
        Strings fvKeys;
        const char* fResidual;  ///< the cells, without their places
        const char* fRandom;
    };
    const char* const kAll = "0.5C 0.1C 3C 0.05S -1C 1C ";
    const char* const kZero = "0C 0C 0C 0C ";
    const char* const kScale = "1C*kGLMM_C9 ";
    const Case cases[] = {
        {"NORMAL", {}, kAll, kAll},
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
        {"BINOMIAL", {"kGLMM_C9", "kGLMM_C10"}, kScale, "0C*kGLMM_C10 0C 0C 0C "},
        {"NORMAL", {"kGLMM_C10"}, "0.5C*kGLMM_C10 0.1C 3C 0.05S -1C 1C ", "0.5C*kGLMM_C10 0.1C 3C 0.05S -1C 1C "},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.fDistribution) + " " + Messages(one.fvKeys));
        Sample sample;
        sample.fSettings = WithDistribution(one.fDistribution, Random(kBlock));
        sample.fTraining = kResidual + kRandom + Messages(one.fvKeys);
        EXPECT_EQ(DrawCells(sample, "ResidualEffect"), one.fResidual);
        EXPECT_EQ(DrawCells(sample, "CovarianceParameters"), one.fRandom);
    }
}

std::string Covariances(const Strings& labels, const std::string& segments) {
    std::string text;
    for (const std::string& label : labels) text += "<Label>" + Printable(label) + "</Label>";
    return "<StructuredData description='randomEffectCovariances'><Statistic name='s'/><MatrixLabels><RowColLabels>" +
           text + "</RowColLabels></MatrixLabels>" + segments + "</StructuredData>";
}

std::string Matrix(const std::string& segment, const std::string& attributes, const std::string& array) {
    return "<SegmentData>" + segment + "<Matrix " + attributes + "><Array>" + array + "</Array></Matrix></SegmentData>";
}

const std::string kNominal =
    Parameter("TargetField", "r") + Parameter("DistributionOfTarget", "NOMINAL") + Parameter("CIn", "0.95");
const std::string kGrouped = RandomBlock(Effect({"x"}), false, Effect({}), {"a"}, "DIAG");

const TableCase kMatrices[] = {
    {"one block",
     {.fSettings = Settings(Random(kBlock)),
      .fDiagnostics =
          Covariances({"Intercept", "x"}, Matrix("<SegmentInfo/>", "nbRows='2' kind='symmetric'", "1 2 __MISSING__")),
      .fTraining = Message("kGLMM_C18")},
     "RandomEffects",
     R"(
table 'RandomEffects' Random Effect Block ^1(1N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a)
rows 1 Random Effect Block: Intercept, x
columns 1 -name 'Random Effect Block Column': Intercept, x
Intercept: 1G 2G
x: 2G .G
)"},
    {"two blocks, the second by groups",
     {.fSettings = Settings(Random(kBlock + kGrouped)),
      .fDiagnostics = Covariances({"x"}, Matrix("<SegmentInfo/>", "nbRows='1'", "1") +
                                             Matrix("<SegmentInfo/>", "nbRows='1'", "1")) +
                      Covariances({"x"}, Matrix(Segment({"a", "1"}), "nbRows='1'", "3") +
                                             Matrix(Segment({"a", "2"}), "nbRows='0'", ""))},
     "RandomEffects",
     R"(
table 'RandomEffects' Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: x
rows 2 Grouping: EffectVar1([<a/2>; <a=1/2>])
columns 1 -name Random Effect Block Column: x
x | EffectVar1([<a/2>; <a=1/2>]): 3G
)",
     "table \"Random Effect Covariances\" of random effect block 1 is left out: there are 2 sets of parameters, not "
     "one\n"
     "table \"Random Effect Covariances\" of random effect block 2: matrix 2 is left out, since it is smaller than its "
     "labels\n"},
    {"categories of a nominal target",
     {.fSettings = kNominal + Random(kBlock),
      .fDiagnostics = Covariances(
          {"x"}, Matrix(Segment({"r", "yes"}), "nbRows='1'", "3") + Matrix("<SegmentInfo/>", "nbRows='1'", "4"))},
     "RandomEffects",
     R"(
table 'RandomEffects' Random Effect Block ^1(1N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a)
rows 1 Random Effect Block: x
rows 2 <r/2>: <r=yes/2>
columns 1 -name Random Effect Block Column: x
x | <r=yes/2>: 3G
)",
     "table \"Random Effect Covariances\" of random effect block 1: a target category is left out, since 0 values "
     "stand for "
     "it\n"},
    {"a block that the settings do not have",
     {.fDiagnostics = Covariances({"x"}, Matrix("<SegmentInfo/>", "nbRows='1'", "1"))},
     "RandomEffects",
     "",
     "table \"Random Effect Covariances\" of random effect block 1 is left out: the settings have no such block\n"},
};

TEST(RandomEffectCovariances, AreIssued) { CheckTables(kMatrices); }

const std::string kOnly = "parameterType='random' block='0'";
const std::string kSecond = "parameterType='random' block='1'";

const TableCase kRandoms[] = {
    {"one block",
     {.fSettings = Settings(Random(kBlock)), .fTraining = kRandom + Messages({"kGLMM_C8", "kGLMM_C28"})},
     "CovarianceParameters",
     R"(
table 'CovarianceParameters' Random Effect
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a; [kGLMM_C28])
rows 1 Random Effect Covariance: 'VarOfEffect'
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, ^1% Confidence Interval(95D){Lower, Upper}
'VarOfEffect': 0C 0C 0C 0C
)"},
    {"a block by groups behind one without parameters",
     {.fSettings = Settings(Random(kBlock + kGrouped)),
      .fTraining =
          Parameters(kSecond, Segment({"a", "3"}), Printable("UN (^1,^2)", {"1", "1"})) + Messages({"kGLMM_C10"})},
     "CovarianceParameters",
     R"(
table 'CovarianceParameters' Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: 
rows 2 Grouping: 
columns 1 -name 'Random Effect Covariance Column': 
table 'CovarianceParameters' Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Diagonal'; '(None)')
rows 1 Random Effect Block: 'UN (1,1)'
rows 2 Grouping: EffectVar1([<a/2>; <a=3/2>])
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'UN (1,1)' | EffectVar1([<a/2>; <a=3/2>]): 0.5C * kGLMM_C10 0.1C 3C 0.05S -1C 1C
)"},
    {"the only block, of a nominal target",
     {.fSettings = kNominal + Random(kBlock),
      .fTraining =
          Estimates(kOnly, Segment({"r", "no"}), {{"p", {"1"}, "", false, Printable("v")}}) + Message("kGLMM_C9")},
     "CovarianceParameters",
     R"(
table 'CovarianceParameters' Random Effect
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a)
rows 1 Random Effect Covariance: 'v'
rows 2 <r/2>: <r=no/2>
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, ^1% Confidence Interval(95D){Lower, Upper}
'v' | <r=no/2>: 0C 0C 0C 0C
)"},
    {"a gap before a block without segments",
     {.fSettings = Settings(Random(kBlock + kBlock)), .fTraining = Parameters(kSecond, "", Printable("v"))},
     "CovarianceParameters",
     R"(
table 'CovarianceParameters' Random Effect Block ^1(2N)
caption Covariance Structure ^1 Subject Specification ^2 ...('Variance components'; a)
rows 1 Random Effect Covariance: 'v'
columns 1 -name 'Random Effect Covariance Column': Estimate, Std. Error, 'Z', Sig., ^1% Confidence Interval(95D){Lower, Upper}
'v': 0.5C 0.1C 3C 0.05S -1C 1C
)",
     "table \"Random Effect\" of random effect block 2 is left out: there are 0 sets of parameters, not one\n"},
};

TEST(RandomEffect, IsIssued) { CheckTables(kRandoms); }

}  // namespace
}  // namespace hierfit::test
