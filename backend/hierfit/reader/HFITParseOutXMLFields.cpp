#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

bool HFITParseOutXML::ReadFieldInfo(SDOMXMLWrapper* element, SubjectData* record) {
    const VarMapInfo& map = fpStats->GetVarMapInfo();
    for (const SDOMXMLWrapper& info : Elements(*element, "FieldInfo")) {
        std::string name;
        if (!info.GetAttribute("fieldName", name)) return false;
        const int field = fDataSource->FindVarIndex(name, 0);
        if (field < 0) return false;

        std::string text;
        if (!info.GetAttribute("fieldValue", text)) return false;
        CFStatVariableValue value(text);
        if (!value.LoadObsValue(fDataSource->GetVariable(field), 0)) return false;

        const int variable = map.VariableOf(field);
        if (variable < 0 || !map.fvIsCategorical[static_cast<std::size_t>(variable)]) {
            Diagnose(info, "the field \"" + unicode::Excerpt(name) + "\" is no categorical variable of the model");
            return false;
        }
        record->fSubjectNames.push_back(std::move(name));
        record->fSubjectIndices.push_back(field);
        record->fSubjectValues.push_back(std::move(value));
        record->fSubjectLevels.push_back(map.fvCategoryCount[static_cast<std::size_t>(variable)]);
    }
    return true;
}

bool HFITParseOutXML::ReadRepeatedMeasure(SDOMXMLWrapper* element, RepeatMeasVar* record) {
    if (!element->GetAttribute("field", record->fRepMeas)) return false;
    record->fRepMeasInd = fDataSource->FindVarIndex(record->fRepMeas, 0);
    if (record->fRepMeasInd < 0) return false;

    const VarMapInfo& map = fpStats->GetVarMapInfo();
    const int variable = map.VariableOf(record->fRepMeasInd);
    if (variable < 0) {
        Diagnose(*element, "the field \"" + unicode::Excerpt(record->fRepMeas) +
                               "\" is no variable of the model, so its levels are not known");
    } else {
        record->fLevels = map.fvCategoryCount[static_cast<std::size_t>(variable)];
    }
    const SDOMXMLWrapper* array = FirstElement(*element, "Array");
    return array && ReadValues(*array, fDataSource->GetVariable(record->fRepMeasInd), &record->fvValues);
}

bool HFITParseOutXML::ReadValues(const SDOMXMLWrapper& array, const KEST_Variable* variable,
                                 std::vector<CFStatVariableValue>* values) {
    std::vector<std::string> tokens;
    if (!array.GetSimpleArray(tokens)) return false;
    values->reserve(values->size() + tokens.size());
    for (std::string& token : tokens) {
        CFStatVariableValue value(std::move(token));
        if (!value.LoadObsValue(variable, 0)) return false;
        values->push_back(std::move(value));
    }
    return true;
}

bool HFITParseOutXML::ReadRegressionParameter(SDOMXMLWrapper* element, RegressionParameter* record) {
    std::string isIntercept;
    if (!element->GetAttribute("isIntercept", isIntercept)) return false;
    record->fIsIntercept = IsTrue(isIntercept);
    if (!element->GetAttribute("name", record->fName)) return false;
    if (record->fIsIntercept) return true;
    for (SDOMXMLWrapper& child : Elements(*element, "Covariate")) {
        if (!ReadCovariate(&child, &record->fvCovariates.emplace_back())) return false;
    }
    for (SDOMXMLWrapper& child : Elements(*element, "Factor")) {
        if (!ReadFactor(&child, &record->fvFactors.emplace_back())) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadCovariate(SDOMXMLWrapper* element, CovariateTerm* record) {
    if (!element->GetAttribute("field", record->fField)) return false;
    record->fVarIndex = fDataSource->FindVarIndex(record->fField, 0);
    std::string power;
    if (!element->GetAttribute("power", power)) return false;
    record->fPower = IntegerOr(power, 0);
    return true;
}

bool HFITParseOutXML::ReadFactor(SDOMXMLWrapper* element, FactorTerm* record) {
    if (!element->GetAttribute("field", record->fField)) return false;
    record->fValue.SetStringValue(AttributeText(*element, "value"));
    record->fVarIndex = fDataSource->FindVarIndex(record->fField, 0);
    if (!record->fValue.LoadObsValue(fDataSource->GetVariable(record->fVarIndex), 0)) return false;
    record->fNest = IsTrue(AttributeText(*element, "nest"));
    return true;
}

const KEST_Variable* HFITParseOutXML::TargetVariable(const SDOMXMLWrapper& element) {
    const KEST_Variable* target = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    if (!target) Diagnose(element, "a value of the target cannot be read, since the target is not in the data");
    return target;
}

}  // namespace hierfit
