#include <algorithm>
#include <cmath>
#include <limits>

#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/SettingTexts.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

/// Toward zero, stopping at the limits of int; what is no number gives 0.
int Truncate(double number) {
    if (std::isnan(number) || number == kSystemMissing) return 0;
    constexpr double kMin = std::numeric_limits<int>::min();
    constexpr double kMax = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(number, kMin, kMax));
}

/// A parameter whose value attribute is all there is to read.
struct PlainParameter {
    std::string_view fName;
    void (*fpStore)(const std::string& value, BuildSettings& settings);
};

constexpr PlainParameter kPlainParameters[] = {
    {"UseTrials", [](const std::string& value, BuildSettings& settings) { settings.fUseTrials = IsTrue(value); }},
    {"TrialsValue",
     [](const std::string& value, BuildSettings& settings) { settings.fTrialsValue = Truncate(String2Double(value)); }},
    {"DistributionOfTarget",
     [](const std::string& value, BuildSettings& settings) {
         settings.fDistributionName = value;
         settings.fDistribution = IndexOf(kDistributions, value);
     }},
    {"LinkFunctionType",
     [](const std::string& value, BuildSettings& settings) {
         settings.fLinkName = value;
         settings.fLink = IndexOf(kLinks, value);
     }},
    {"LinkFunctionParam",
     [](const std::string& value, BuildSettings& settings) {
         settings.fLinkParamText = value;
         settings.fLinkParam = NumberOr(value, kSystemMissing);
     }},
    {"Intercept", [](const std::string& value, BuildSettings& settings) { settings.fIntercept = IsTrue(value); }},
    {"ResidualCovarianceType",
     [](const std::string& value, BuildSettings& settings) {
         settings.fResidualCovarianceType = IndexOf(kCovarianceTypes, value);
     }},
    {"ResidualCovarianceTBand",
     [](const std::string& value, BuildSettings& settings) {
         settings.fResidualCovarianceTBand = IntegerOr(value, kDefaultBands);
     }},
    {"CIn", [](const std::string& value,
               BuildSettings& settings) { settings.fConfidenceLevel = NumberOr(value, kSystemMissing); }},
    {"pAdjustment",
     [](const std::string& value, BuildSettings& settings) { settings.fPAdjustment = IndexOf(kAdjustments, value); }},
};

}  // namespace

bool HFITParseOutXML::ReadBuildSettings(SDOMXMLWrapper* element, BuildSettings* record) {
    const Elements parameters(*element, "Parameter");
    if (parameters.Empty()) return false;
    for (const SDOMXMLWrapper& parameter : parameters) {
        if (!ReadParameter(parameter, record)) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadParameter(const SDOMXMLWrapper& element, BuildSettings* record) {
    /// A parameter that names a field or carries child elements.
    struct StructuredParameter {
        std::string_view fName;
        bool (HFITParseOutXML::*fpRead)(const SDOMXMLWrapper& element, BuildSettings* record);
    };
    static constexpr StructuredParameter kStructuredParameters[] = {
        {"TargetField", &HFITParseOutXML::ReadTargetField},
        {"TrialsField", &HFITParseOutXML::ReadTrialsField},
        {"ResidualSubjectSpec", &HFITParseOutXML::ReadResidualSubjectSpec},
        {"ResidualGroupSpec", &HFITParseOutXML::ReadResidualGroupSpec},
        {"FixedEffectList", &HFITParseOutXML::ReadFixedEffectList},
        {"RandomSpecs", &HFITParseOutXML::ReadRandomSpecs},
        {"EMMEANS", &HFITParseOutXML::ReadEmmeansSpecs},
    };

    std::string name;
    if (!element.GetAttribute("name", name)) return false;
    for (const PlainParameter& parameter : kPlainParameters) {
        if (parameter.fName == name) parameter.fpStore(AttributeText(element, "value"), *record);
    }
    for (const StructuredParameter& parameter : kStructuredParameters) {
        if (parameter.fName == name) return (this->*parameter.fpRead)(element, record);
    }
    return true;
}

int HFITParseOutXML::FindNamedField(const SDOMXMLWrapper& element, const std::string& name,
                                    const std::string& otherwise) {
    const int index = fDataSource->FindVarIndex(name, 0);
    if (index < 0)
        Diagnose(element, "the field \"" + unicode::Excerpt(name) + "\" is not in the data, and " + otherwise);
    return index;
}

bool HFITParseOutXML::ReadTargetField(const SDOMXMLWrapper& element, BuildSettings* record) {
    record->fTarget = AttributeText(element, "value");
    record->fTargetIndex = FindNamedField(element, record->fTarget, "its name is left blank");
    return true;
}

bool HFITParseOutXML::ReadTrialsField(const SDOMXMLWrapper& element, BuildSettings* record) {
    record->fTrials = AttributeText(element, "value");
    record->fTrialsIndex = -1;
    if (record->fTrials.empty()) return true;
    record->fTrialsIndex = FindNamedField(element, record->fTrials, "the fixed number of trials stands in its place");
    return true;
}

bool HFITParseOutXML::ReadResidualSubjectSpec(const SDOMXMLWrapper& element, BuildSettings* record) {
    const SDOMXMLWrapper* effect = FirstElement(element, "StructuredValue");
    return !effect || ReadEffect(*effect, &record->fResidualSubjectSpec);
}

bool HFITParseOutXML::ReadResidualGroupSpec(const SDOMXMLWrapper& element, BuildSettings* record) {
    ReadValueList(FirstElement(element, "ListValue"), &record->fvResidualGroupSpec);
    return true;
}

bool HFITParseOutXML::ReadFixedEffectList(const SDOMXMLWrapper& element, BuildSettings* record) {
    return ReadEffectList(FirstElement(element, "ListValue"), &record->fvFixedEffectList);
}

bool HFITParseOutXML::ReadEffectList(const SDOMXMLWrapper* listValue, std::vector<EffectStruct>* list) {
    if (!listValue) return true;
    for (const SDOMXMLWrapper& structuredValue : Elements(*listValue, "StructuredValue")) {
        EffectStruct effect;
        if (!ReadEffect(structuredValue, &effect)) return false;
        list->push_back(std::move(effect));
    }
    return true;
}

bool HFITParseOutXML::ReadEffect(const SDOMXMLWrapper& element, EffectStruct* record) {
    bool ok = false;  // the last attribute decides
    for (const SDOMXMLWrapper& attribute : Elements(element, "Attribute")) ok = ReadEffectAttribute(attribute, record);
    if (ok && record->fvFieldIndex.size() > 1 && record->fvNestingLevels.size() < record->fvFieldIndex.size()) {
        Diagnose(element, "the effect has fewer nesting levels than fields, and the others are taken as crossed");
    }
    return ok;
}

bool HFITParseOutXML::ReadEffectAttribute(const SDOMXMLWrapper& element, EffectStruct* record) {
    const std::string name = AttributeText(element, "name");
    const SDOMXMLWrapper* listValue = FirstElement(element, "ListValue");
    if (!listValue) return false;
    for (const SDOMXMLWrapper& item : Elements(*listValue, "Value")) {
        const std::string value = AttributeText(item, "value");
        if (name == "Fields") {
            record->fvFieldNames.push_back(value);
            const int index = fDataSource->FindVarIndex(value, 0);
            if (index < 0) return false;
            record->fvFieldIndex.push_back(index);
        } else if (name == "NestingLevels") {
            record->fvNestingLevels.push_back(IntegerOr(value, 0));
        }
    }
    return true;
}

void HFITParseOutXML::ReadValueList(const SDOMXMLWrapper* listValue, std::vector<std::string>* values) {
    if (!listValue) return;
    for (const SDOMXMLWrapper& value : Elements(*listValue, "Value")) values->push_back(AttributeText(value, "value"));
}

}  // namespace hierfit
