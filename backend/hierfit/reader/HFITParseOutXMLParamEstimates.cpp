#include <algorithm>

#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

struct NamedNumber {
    const char* fName;
    double ParamEstimate::*fpNumber;
};

constexpr NamedNumber kNumbers[] = {
    {"estimate", &ParamEstimate::fEstimate},
    {"stdError", &ParamEstimate::fStdError},
    {"df", &ParamEstimate::fDf},
    {"confIntervalLower", &ParamEstimate::fConfLower},
    {"confIntervalUpper", &ParamEstimate::fConfUpper},
    {"tTest", &ParamEstimate::fTTest},
    {"zTest", &ParamEstimate::fZTest},
    {"sig", &ParamEstimate::fSig},
    {"chiSquare", &ParamEstimate::fChiSquare},
    {"expEstimate", &ParamEstimate::fExpEstimate},
    {"expCILower", &ParamEstimate::fExpCILower},
    {"expCIUpper", &ParamEstimate::fExpCIUpper},
};

/// Blocks that a document may count, however few its settings describe; tables of the others are left out.
constexpr std::size_t kLeastBlocks = 1000;

}  // namespace

bool HFITParseOutXML::ReadParameterEstimates(SDOMXMLIterator* iterator, ParamCollect* collect) {
    for (const SDOMXMLWrapper& element : Elements(iterator)) {
        std::string type;
        if (!element.GetAttribute("parameterType", type)) return false;
        ParamGroup group;
        if (!ReadParameterGroup(element, type, &group)) return false;
        if (!FileParameterGroup(element, type, std::move(group), collect)) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadParameterGroup(const SDOMXMLWrapper& element, const std::string& type, ParamGroup* group) {
    if (type == "fixed") {
        if (!ReadTargetValue(element, &group->fTargetValue)) return false;
    } else if (SDOMXMLWrapper* segment = FirstElement(element, "SegmentInfo")) {
        if (!ReadFieldInfo(segment, &group->fFiledData)) return false;
    }
    const Elements parameters(element, "ParameterStats");
    if (parameters.Empty()) return false;
    for (SDOMXMLWrapper& parameter : parameters) {
        if (!ReadParameterStats(&parameter, &group->fvParamEstimates.emplace_back())) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadTargetValue(const SDOMXMLWrapper& element, CFStatVariableValue* value) {
    const SDOMXMLWrapper* info = FirstElement(element, "SegmentInfo/FieldInfo");
    if (!info) return true;
    std::string text;
    if (!info->GetAttribute("fieldValue", text)) return false;
    value->SetStringValue(text);
    return value->LoadObsValue(TargetVariable(*info), 0);
}

bool HFITParseOutXML::FileParameterGroup(const SDOMXMLWrapper& element, const std::string& type, ParamGroup group,
                                         ParamCollect* collect) {
    if (type == "fixed")
        collect->fvFixedParamEstim.push_back(std::move(group));
    else if (type == "repeated")
        collect->fvRepeatedParamEstim.push_back(std::move(group));
    else if (type == "random")
        return FileRandomGroup(element, std::move(group), &collect->fvRandomParamEstim);
    return true;
}

bool HFITParseOutXML::FileRandomGroup(const SDOMXMLWrapper& element, ParamGroup group,
                                      std::vector<RandomParamBlock>* blocks) {
    const int block = IntegerOr(AttributeText(element, "block"), 0);
    const std::size_t nBlocks = std::max(fpBuildSettings->fvRandomSpecs.size(), kLeastBlocks);
    const auto at = static_cast<std::size_t>(block);
    if (block < 0 || at >= nBlocks) {
        Diagnose(element, "the random effect block " + std::to_string(block) + " is not between 0 and " +
                              std::to_string(nBlocks - 1));
        return false;
    }
    while (blocks->size() <= at) blocks->push_back({block, {}});
    (*blocks)[at].fvGroups.push_back(std::move(group));
    return true;
}

bool HFITParseOutXML::ReadParameterStats(SDOMXMLWrapper* element, ParamEstimate* record) {
    SDOMXMLWrapper* parameter = FirstElement(*element, "RegressionParameter");
    if (parameter && !ReadRegressionParameter(parameter, &record->fParam)) return false;
    if (const SDOMXMLWrapper* statistic = FirstElement(*element, "Statistic")) {
        if (!ReadEffectIndex(*statistic, record)) return false;
    }
    SDOMXMLWrapper* printable = FirstElement(*element, "PrintableList");
    if (printable && !ReadPrintableList(printable, &record->fPrintableList)) return false;

    if (!element->GetAttribute("paramName", record->fParamName)) return false;
    if (!element->GetAttribute("paramLabel", record->fParamLabel)) return false;
    std::string text;
    for (const NamedNumber& number : kNumbers) {
        if (!element->GetAttribute(number.fName, text)) return false;
        record->*number.fpNumber = NumberOr(text, fSysMis);
    }
    if (!element->GetAttribute("isRedundant", text)) return false;
    record->fIsRedundant = IsTrue(text);
    return true;
}

bool HFITParseOutXML::ReadEffectIndex(const SDOMXMLWrapper& statistic, ParamEstimate* record) {
    if (record->fParam.fIsIntercept) {
        Diagnose(statistic, "an intercept belongs to no effect and carries no statistic");
        return false;
    }
    if (!statistic.GetAttribute("name", record->fStatName)) return false;
    if (!statistic.GetAttribute("value", record->fStatValue)) return false;
    record->fStatIndex = String2Integer(record->fStatValue);
    return true;
}

}  // namespace hierfit
