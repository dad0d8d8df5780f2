#include "hierfit/store/HFITOutputStats.h"

#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

/// Deletes the present record before it makes the fresh one.
template <class Record>
Record* Renew(std::unique_ptr<Record>& record) {
    record.reset();
    record = std::make_unique<Record>();
    return record.get();
}

/// Kinds 2 and 3 of a model variable have categories.
bool IsCategorical(const IMCVariable& variable) { return variable.GetKind() == 2 || variable.GetKind() == 3; }

}  // namespace

HFITOutputStats::HFITOutputStats() : fpParserMessage(std::make_unique<ParserMessage>()) {
    fpParserMessage->SetCommandName("HIERFIT");
    fpParserMessage->SetProcedureTitle("Generalized Linear Mixed Models");
}

HFITOutputStats::~HFITOutputStats() {
    fpParserMessage.reset();
    fpVarList.reset();
    fpBuildSettings.reset();
    fpModelDiagnostics.reset();
    fpStructuredData.reset();
    fpClassifMatrixData.reset();
    fpEffectStatData.reset();
    fpParamCollect.reset();
    fpEmmeansEstimates.reset();
    fpCustomEmmeans.reset();
    fpStringMapCollect.reset();
}

MCVarList* HFITOutputStats::CreateVarList() { return Renew(fpVarList); }
BuildSettings* HFITOutputStats::CreateBuildSettings() { return Renew(fpBuildSettings); }
ModelDiagnostics* HFITOutputStats::CreateModelDiagnostics() { return Renew(fpModelDiagnostics); }
StructuredData* HFITOutputStats::CreateStructuredData() { return Renew(fpStructuredData); }
ClassifMatrixData* HFITOutputStats::CreateClassifMatrixData() { return Renew(fpClassifMatrixData); }
EffectStatData* HFITOutputStats::CreateEffectStatData() { return Renew(fpEffectStatData); }
ParamCollect* HFITOutputStats::CreateParamCollect() { return Renew(fpParamCollect); }
std::vector<EstimateData>* HFITOutputStats::CreateEmmeansEstimates() { return Renew(fpEmmeansEstimates); }
std::vector<EmmeansData>* HFITOutputStats::CreateCustomEmmeans() { return Renew(fpCustomEmmeans); }
StringMapCollect* HFITOutputStats::CreateStringMapCollect() { return Renew(fpStringMapCollect); }

void HFITOutputStats::BuildVarMap() {
    const int nVariables = fpVarList ? fpVarList->Size() : 0;
    const int nFields = fpMetaData ? fpMetaData->FieldCount() : 0;
    VarMapInfo map;
    map.fvFieldToVar.assign(static_cast<std::size_t>(nFields), -1);
    map.fvVarToField.assign(static_cast<std::size_t>(nVariables), -1);
    map.fvIsCategorical.assign(static_cast<std::size_t>(nVariables), false);
    map.fvCategoryCount.assign(static_cast<std::size_t>(nVariables), 0);
    for (int i = 0; i < nVariables; ++i) {
        const IMCVariable* variable = fpVarList->GetVarAt(i);
        std::string name;
        variable->GetName(name);
        const int field = fpMetaData ? fpMetaData->GetFieldIndex(name) : -1;
        if (field < 0 || field >= nFields) {
            Diagnose("the model's variable \"" + unicode::Excerpt(name) + "\" is no field of the data and is left out");
            continue;
        }
        const auto at = static_cast<std::size_t>(i);
        map.fvFieldToVar[static_cast<std::size_t>(field)] = i;
        map.fvVarToField[at] = field;
        map.fvIsCategorical[at] = IsCategorical(*variable);
        if (map.fvIsCategorical[at]) map.fvCategoryCount[at] = variable->GetCategoryCount();
    }
    fVarMapInfo = std::move(map);
}

bool HFITOutputStats::HasWarning(const std::string& key) const {
    for (; fIndexedWarnings < fvWarningList.size(); ++fIndexedWarnings) {
        fWarningKeys.insert(fvWarningList[fIndexedWarnings].fPattern);
    }
    return fWarningKeys.count(key) > 0;
}

}  // namespace hierfit
