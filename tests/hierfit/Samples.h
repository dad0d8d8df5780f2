#pragma once

#include <string>
#include <vector>

namespace hierfit::test {

using Strings = std::vector<std::string>;

/// Fields of the samples: y (continuous, "Yield"), n (trials), x (continuous), a (1 2 3, two of them with labels), b
/// (lo hi, one with a label), t (ordinal, 1 2), r (a nominal or ordinal target, no yes), and out (categorical), which
/// the model does not use.
inline const std::string kSamplePmml = R"(<PMML version="4.4"><DataDictionary>
<DataField name="y" displayName="Yield" optype="continuous" dataType="double"/>
<DataField name="n" optype="continuous" dataType="integer"/>
<DataField name="x" displayName="Dose" optype="continuous" dataType="double"/>
<DataField name="a" optype="categorical" dataType="integer"><Value value="1" displayValue="one"/>
<Value value="2" displayValue="two"/><Value value="3"/></DataField>
<DataField name="b" displayName="Level" optype="categorical" dataType="string"><Value value="lo" displayValue="Low"/>
<Value value="hi"/></DataField>
<DataField name="t" optype="ordinal" dataType="integer"><Value value="1"/><Value value="2"/></DataField>
<DataField name="r" optype="categorical" dataType="string"><Value value="no"/><Value value="yes"/></DataField>
<DataField name="out" optype="categorical" dataType="integer"><Value value="1"/></DataField>
</DataDictionary><GeneralRegressionModel functionName="regression"><MiningSchema>
<MiningField name="y"/><MiningField name="n"/><MiningField name="x"/><MiningField name="a"/><MiningField name="b"/>
<MiningField name="t"/><MiningField name="r"/></MiningSchema></GeneralRegressionModel></PMML>)";

/// An element, such as Tag("Array kind='real'", "1 2").
inline std::string Tag(const std::string& start, const std::string& content) {
    return "<" + start + ">" + content + "</" + start.substr(0, start.find(' ')) + ">";
}

inline std::string Join(const Strings& parts, const std::string& before, const std::string& behind) {
    std::string text;
    for (const std::string& part : parts) text += before + part + behind;
    return text;
}

// Settings.

inline std::string Parameter(const std::string& name, const std::string& value) {
    return "<Parameter name='" + name + "' value='" + value + "'/>";
}

inline const std::string kSettings = Parameter("TargetField", "y") + Parameter("DistributionOfTarget", "NORMAL") +
                                     Parameter("LinkFunctionType", "IDENTITY") + Parameter("CIn", "0.95");

inline std::string List(const std::string& name, const std::string& items) {
    return Tag("Parameter name='" + name + "'", Tag("ListValue", items));
}

inline std::string Attribute(const std::string& name, const std::string& content) {
    return Tag("Attribute name='" + name + "'", content);
}

inline std::string Values(const std::string& name, const Strings& values) {
    return Attribute(name, Tag("ListValue", Join(values, "<Value value='", "'/>")));
}

inline std::string Effect(const Strings& fields, const Strings& levels = {"0"}) {
    return Tag("StructuredValue", Values("Fields", fields) + Values("NestingLevels", levels));
}

inline std::string RandomBlock(const Strings& effects, const std::string& subject, const Strings& groups = {},
                               const std::string& type = "VC") {
    return Tag("StructuredValue", Attribute("EffectList", Tag("ListValue", Join(effects, "", ""))) +
                                      "<Attribute name='Intercept' value='true'/>" + Attribute("SubjectSpec", subject) +
                                      Values("GroupSpec", groups) + "<Attribute name='CovarianceType' value='" + type +
                                      "'/>");
}

inline std::string MeansRequest(const Strings& factors, const std::string& compare, const Strings& levels = {"0"}) {
    return Tag("StructuredValue", Attribute("Factors", Effect(factors, levels)) +
                                      "<Attribute name='CompareFactor' value='" + compare + "'/>");
}

// Parts of the results.

inline std::string Segment(const Strings& fieldsAndValues) {
    std::string text;
    for (std::size_t i = 0; i + 1 < fieldsAndValues.size(); i += 2) {
        text += "<FieldInfo fieldName='" + fieldsAndValues[i] + "' fieldValue='" + fieldsAndValues[i + 1] + "'/>";
    }
    return Tag("SegmentInfo", text);
}

inline std::string Message(const std::string& key, const Strings& parameters = {}) {
    const std::string values = Join(parameters, "<PrintableValue storage='string' value='", "'/>");
    return Tag("Message", Tag("PrintableList pattern='" + key + "'", values));
}

inline std::string Printable(const std::string& pattern, const Strings& arguments = {}) {
    return Tag("PrintableList pattern='" + pattern + "'", Join(arguments, "<PrintableList pattern='", "'/>"));
}

inline std::string Column(const std::string& attributes, const std::string& array) {
    return Tag("Coordinates " + attributes, Tag("Array", array));
}

inline std::string Group(const std::string& description, const std::string& columns) {
    return Tag("CoordinatesGroup description='" + description + "'", columns);
}

inline std::string FirstSubject(const std::string& freq, const std::string& segment, const std::string& groups) {
    return Tag("StructuredData description='firstSubjectRecordsForDataStructure'",
               "<Counts totalFreq='" + freq + "'/>" + Tag("SegmentData", segment + Tag("MultivariateData", groups)));
}

inline std::string Covariances(const std::string& labels, const std::string& segments) {
    return Tag("StructuredData description='randomEffectCovariances'",
               "<Statistic name='s'/>" + Tag("MatrixLabels", Tag("RowColLabels", labels)) + segments);
}

inline std::string Matrix(const std::string& attributes, const std::string& array) {
    return Tag("Matrix " + attributes, Tag("Array", array));
}

/// The statistics of one parameter: texts of estimate, standard error, lower and upper bound, t, z and significance.
/// All others are empty.
inline std::string Estimate(const std::string& label, Strings figures, const std::string& children = "",
                            const std::string& exp = "", const std::string& isRedundant = "false") {
    figures.resize(7);
    return Tag("ParameterStats paramName='" + label + "' paramLabel='" + label + "' estimate='" + figures[0] +
                   "' stdError='" + figures[1] + "' df='' confIntervalLower='" + figures[2] + "' confIntervalUpper='" +
                   figures[3] + "' tTest='" + figures[4] + "' zTest='" + figures[5] + "' sig='" + figures[6] +
                   "' chiSquare='' expEstimate='" + exp + "' expCILower='" + exp + "' expCIUpper='" + exp +
                   "' isRedundant='" + isRedundant + "'",
               children);
}

/// Estimates of a type, which may have more attributes behind it, such as "random' block='0".
inline std::string Estimates(const std::string& type, const std::string& content) {
    return Tag("ParameterEstimates parameterType='" + type + "'", content);
}

/// A document with the results, from its parts. The defaults make the smallest one that can be read.
struct Sample {
    std::string fAlgorithm = R"(<PredictiveSummary algorithmName="GLMM"/>)";
    std::string fSettings = kSettings;
    std::string fStringMaps =
        R"(<StringMap mapId="1"><MapEntry name="P1"><Label>)"
        R"(<RegressionParameter isIntercept="true" name="Intercept"/></Label></MapEntry></StringMap>)";
    std::string fStatistics = R"(<Statistic name="AICC" value="1.5"/>)";
    std::string fDiagnostics = "";
    std::string fTraining = Estimates("fixed", Estimate("Intercept", {"1"}));

    std::string Text() const {
        return Tag("StatXML",
                   Tag("BuildSettings", fSettings) +
                       Tag("PMMLModel", fAlgorithm + fStringMaps + Tag("ModelDiagnostics", fStatistics + fDiagnostics) +
                                            Tag("TrainingSummary", fTraining)));
    }
};

}  // namespace hierfit::test
