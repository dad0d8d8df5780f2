#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/SettingTexts.h"
#include "hierfit/reader/XmlReading.h"

namespace hierfit {

bool HFITParseOutXML::ReadRandomSpecs(const SDOMXMLWrapper& element, BuildSettings* record) {
    const SDOMXMLWrapper* listValue = FirstElement(element, "ListValue");
    if (!listValue) return false;
    const Elements blocks(*listValue, "StructuredValue");
    if (blocks.Empty()) return false;
    for (const SDOMXMLWrapper& block : blocks) {
        RandomSpec spec;
        for (const SDOMXMLWrapper& attribute : Elements(block, "Attribute")) {
            if (!ReadRandomAttribute(attribute, &spec)) return false;
        }
        record->fvRandomSpecs.push_back(std::move(spec));
    }
    return true;
}

bool HFITParseOutXML::ReadRandomAttribute(const SDOMXMLWrapper& element, RandomSpec* record) {
    const std::string name = AttributeText(element, "name");
    const std::string value = AttributeText(element, "value");
    if (name == "EffectList") return ReadEffectList(FirstElement(element, "ListValue"), &record->fvEffectList);
    if (name == "SubjectSpec") {
        const SDOMXMLWrapper* effect = FirstElement(element, "StructuredValue");
        return !effect || ReadEffect(*effect, &record->fSubjectSpec);
    }
    if (name == "GroupSpec") ReadValueList(FirstElement(element, "ListValue"), &record->fvGroupSpec);
    if (name == "Intercept") record->fIntercept = IsTrue(value);
    if (name == "CovarianceType") record->fCovarianceType = IndexOf(kCovarianceTypes, value);
    if (name == "CovarianceTBand") record->fCovarianceTBand = IntegerOr(value, kDefaultBands);
    return true;
}

bool HFITParseOutXML::ReadEmmeansSpecs(const SDOMXMLWrapper& element, BuildSettings* record) {
    const SDOMXMLWrapper* listValue = FirstElement(element, "ListValue");
    if (!listValue) return false;
    const Elements requests(*listValue, "StructuredValue");
    if (requests.Empty()) return false;
    for (const SDOMXMLWrapper& request : requests) {
        EmmeansSpec spec;
        const bool ok = ReadEmmeansSpec(request, &spec);
        record->fvEmmeansSpecs.push_back(std::move(spec));
        if (!ok) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadEmmeansSpec(const SDOMXMLWrapper& element, EmmeansSpec* record) {
    for (const SDOMXMLWrapper& attribute : Elements(element, "Attribute")) {
        if (!ReadEmmeansAttribute(attribute, record)) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadEmmeansAttribute(const SDOMXMLWrapper& element, EmmeansSpec* record) {
    const std::string name = AttributeText(element, "name");
    const std::string value = AttributeText(element, "value");
    if (name == "Factors") {
        const SDOMXMLWrapper* effect = FirstElement(element, "StructuredValue");
        return effect && ReadEffect(*effect, &record->fFactors);
    }
    if (name == "EstimateMeans") record->fEstimateMeans = IsTrue(value);
    if (name == "CompareFactor") record->fCompareFactor = value;
    if (name == "ContrastType") record->fContrastType = IndexOf(kContrastTypes, value);
    if (name == "ReferenceType") record->fReferenceType = IndexOf(kReferenceTypes, value);
    if (name == "ReferenceValue") record->fReferenceValue = value;
    return true;
}

}  // namespace hierfit
