#pragma once

#include <string>
#include <vector>

namespace hierfit::test {

/// Fields of the samples: y (continuous, "Yield"), n (trials), x (continuous), a (1 2 3), b (lo hi), t (ordinal, 1 2),
/// r (a nominal or ordinal target, no yes), and out (categorical), which the model does not use.
std::string SamplePmml();

using Strings = std::vector<std::string>;

/// Elements of the document with the results.
std::string Parameter(const std::string& name, const std::string& value);
std::string Effect(const Strings& fields, const Strings& levels = {"0"});
std::string ParameterOf(const std::string& name, const std::string& content);
std::string List(const std::string& content);
std::string Attribute(const std::string& name, const std::string& content);
std::string RandomBlock(const std::string& effects, bool intercept, const std::string& subject,
                        const Strings& groups = {}, const std::string& type = "VC");
std::string MeansRequest(const Strings& factors, const std::string& compare, const Strings& levels = {"0"});
std::string Segment(const Strings& fieldsAndValues);
std::string Message(const std::string& key, const Strings& parameters = {});
std::string Printable(const std::string& pattern, const Strings& arguments = {});
std::string Column(const std::string& attributes, const std::string& array);

/// The statistics of one parameter: texts of estimate, standard error, lower and upper bound, t, z and significance.
/// All others are empty; `more` overrides attributes, children stand behind.
struct Estimate {
    std::string fLabel;
    Strings fvFigures;
    std::string fExp = "";
    bool fIsRedundant = false;
    std::string fChildren = "";

    std::string Text() const;
};

std::string Estimates(const std::string& attributes, const std::string& segment,
                      const std::vector<Estimate>& estimates);

/// A document with the results, from its parts. The defaults make the smallest one that can be read.
struct Sample {
    std::string fAlgorithm = R"(<PredictiveSummary algorithmName="GLMM"/>)";
    std::string fSettings = Parameter("TargetField", "y") + Parameter("DistributionOfTarget", "NORMAL") +
                            Parameter("LinkFunctionType", "IDENTITY") + Parameter("CIn", "0.95");
    std::string fStringMaps =
        R"(<StringMap mapId="1"><MapEntry name="P1"><Label>)"
        R"(<RegressionParameter isIntercept="true" name="Intercept"/></Label></MapEntry></StringMap>)";
    std::string fStatistics = R"(<Statistic name="AICC" value="1.5"/>)";
    std::string fDiagnostics = "";
    std::string fTraining = Estimates("parameterType='fixed'", "", {{"Intercept", {"1"}}});

    std::string Text() const;
};

}  // namespace hierfit::test
