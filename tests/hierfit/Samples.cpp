#include "tests/hierfit/Samples.h"

namespace hierfit::test {

namespace {

std::string Join(const Strings& parts, const std::string& before, const std::string& behind) {
    std::string text;
    for (const std::string& part : parts) text += before + part + behind;
    return text;
}

std::string Values(const Strings& values) { return List(Join(values, "<Value value='", "'/>")); }

}  // namespace

std::string SamplePmml() {
    return R"(<PMML version="4.4"><DataDictionary>
<DataField name="y" displayName="Yield" optype="continuous" dataType="double"/>
<DataField name="n" optype="continuous" dataType="integer"/>
<DataField name="x" displayName="Dose" optype="continuous" dataType="double"/>
<DataField name="a" optype="categorical" dataType="integer"><Value value="1"/><Value value="2"/><Value value="3"/></DataField>
<DataField name="b" displayName="Level" optype="categorical" dataType="string"><Value value="lo"/><Value value="hi"/></DataField>
<DataField name="t" optype="ordinal" dataType="integer"><Value value="1"/><Value value="2"/></DataField>
<DataField name="r" optype="categorical" dataType="string"><Value value="no"/><Value value="yes"/></DataField>
<DataField name="out" optype="categorical" dataType="integer"><Value value="1"/></DataField>
</DataDictionary><GeneralRegressionModel functionName="regression"><MiningSchema>
<MiningField name="y"/><MiningField name="n"/><MiningField name="x"/><MiningField name="a"/><MiningField name="b"/>
<MiningField name="t"/><MiningField name="r"/></MiningSchema></GeneralRegressionModel></PMML>)";
}

std::string Parameter(const std::string& name, const std::string& value) {
    return "<Parameter name='" + name + "' value='" + value + "'/>";
}

std::string ParameterOf(const std::string& name, const std::string& content) {
    return "<Parameter name='" + name + "'>" + content + "</Parameter>";
}

std::string List(const std::string& content) { return "<ListValue>" + content + "</ListValue>"; }

std::string Attribute(const std::string& name, const std::string& content) {
    return "<Attribute name='" + name + "'>" + content + "</Attribute>";
}

std::string Effect(const Strings& fields, const Strings& levels) {
    return "<StructuredValue>" + Attribute("Fields", Values(fields)) + Attribute("NestingLevels", Values(levels)) +
           "</StructuredValue>";
}

std::string RandomBlock(const std::string& effects, bool intercept, const std::string& subject, const Strings& groups,
                        const std::string& type) {
    return "<StructuredValue>" + Attribute("EffectList", List(effects)) + "<Attribute name='Intercept' value='" +
           (intercept ? "true" : "false") + "'/>" + Attribute("SubjectSpec", subject) +
           Attribute("GroupSpec", Values(groups)) + "<Attribute name='CovarianceType' value='" + type +
           "'/></StructuredValue>";
}

std::string MeansRequest(const Strings& factors, const std::string& compare, const Strings& levels) {
    return "<StructuredValue>" + Attribute("Factors", Effect(factors, levels)) +
           "<Attribute name='CompareFactor' value='" + compare + "'/></StructuredValue>";
}

std::string Segment(const Strings& fieldsAndValues) {
    std::string text;
    for (std::size_t i = 0; i + 1 < fieldsAndValues.size(); i += 2) {
        text += "<FieldInfo fieldName='" + fieldsAndValues[i] + "' fieldValue='" + fieldsAndValues[i + 1] + "'/>";
    }
    return "<SegmentInfo>" + text + "</SegmentInfo>";
}

std::string Message(const std::string& key, const Strings& parameters) {
    return "<Message><PrintableList pattern='" + key + "'>" +
           Join(parameters, "<PrintableValue storage='string' value='", "'/>") + "</PrintableList></Message>";
}

std::string Printable(const std::string& pattern, const Strings& arguments) {
    return "<PrintableList pattern='" + pattern + "'>" + Join(arguments, "<PrintableList pattern='", "'/>") +
           "</PrintableList>";
}

std::string Column(const std::string& attributes, const std::string& array) {
    return "<Coordinates " + attributes + "><Array>" + array + "</Array></Coordinates>";
}

std::string Estimate::Text() const {
    Strings figures = fvFigures;
    figures.resize(7);
    return "<ParameterStats paramName='" + fLabel + "' paramLabel='" + fLabel + "' estimate='" + figures[0] +
           "' stdError='" + figures[1] + "' df='' confIntervalLower='" + figures[2] + "' confIntervalUpper='" +
           figures[3] + "' tTest='" + figures[4] + "' zTest='" + figures[5] + "' sig='" + figures[6] +
           "' chiSquare='' expEstimate='" + fExp + "' expCILower='" + fExp + "' expCIUpper='" + fExp +
           "' isRedundant='" + (fIsRedundant ? "true" : "false") + "'>" + fChildren + "</ParameterStats>";
}

std::string Estimates(const std::string& attributes, const std::string& segment,
                      const std::vector<Estimate>& estimates) {
    std::string text = "<ParameterEstimates " + attributes + ">" + segment;
    for (const Estimate& estimate : estimates) text += estimate.Text();
    return text + "</ParameterEstimates>";
}

std::string Sample::Text() const {
    return "<StatXML><BuildSettings>" + fSettings + "</BuildSettings><PMMLModel>" + fAlgorithm + fStringMaps +
           "<ModelDiagnostics>" + fStatistics + fDiagnostics + "</ModelDiagnostics><TrainingSummary>" + fTraining +
           "</TrainingSummary></PMMLModel></StatXML>";
}

}  // namespace hierfit::test
