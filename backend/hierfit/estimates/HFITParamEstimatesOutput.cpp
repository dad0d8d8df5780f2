#include "hierfit/estimates/HFITParamEstimatesOutput.h"

#include "hierfit/store/EffectNaming.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"
#include "host/FacSTDictionary.h"
#include "host/PathFactory.h"

namespace hierfit {

namespace {

std::string InterceptLabel() {
    return FacSTDictionary(PathFactory::getPathInstance().GetStringTableLocation()).LookUp("Intercept");
}

std::string NameOf(const KEST_Variable* variable) { return variable ? variable->GetName() : ""; }

void TestCells(BpDimension& statistics, const EffectTest& test) {
    NumberCell(statistics, "F", test.fFStatistic, BpProcedure::GeneralStat());
    NumberCell(statistics, "df1", test.fDf1, BpProcedure::Count());
    NumberCell(statistics, "df2", test.fDf2, BpProcedure::Count());
    NumberCell(statistics, "Sig.", test.fSig, BpProcedure::Significance());
}

}  // namespace

HFITParamEstimatesOutput::HFITParamEstimatesOutput(BpProcedure* procedure, KEST_DataSource* dataSource,
                                                   HFITOutputStats* stats)
    : fSysMis(kSystemMissing),
      fProcedure(procedure),
      fDataSource(dataSource),
      fpStats(stats),
      fpBuildSettings(stats->GetBuildSettings()) {}

void HFITParamEstimatesOutput::FixedEffects() {
    const std::size_t n = fpBuildSettings->fvFixedEffectList.size();
    if (n == 0 && !fpBuildSettings->fIntercept) return;
    const EffectStatData* data = fpStats->GetEffectStatData();
    if (!data) {
        if (fpStats->GetParamCollect()) Diagnose("table \"Fixed Effects\" is left out: there are no tests");
        return;
    }
    if (data->fvFixedEffectTests.size() != n) {
        Diagnose("table \"Fixed Effects\" is left out: there are " + std::to_string(data->fvFixedEffectTests.size()) +
                 " tests for " + std::to_string(n) + " effects");
        return;
    }

    BpPivotTable table = fProcedure->PivotTable(Translated("Fixed Effects"), Plain("FixedEffects"), true);
    table.Note(BpAnnotation(TargetNote(*fpBuildSettings, *fDataSource)));
    table.Caption(DistributionCaption(*fpStats, *fpBuildSettings, false));
    BpDimension source = table.Dimension(Translated("Source"), BpSort::AsIssued);
    source.Position(BpPlace::Rows, 1, false, false);
    BpDimension statistics = StatisticsDimension(table);

    EffectLabels(fpBuildSettings->fvFixedEffectList, fvFixedEffectLabels);
    BpCategory model = source.Category(Translated("Corrected Model"));
    if (n == 0) model.Note(BpAnnotation(Translated("Fixed effects intercept only ...")));
    TestCells(statistics, data->fCorrectedModel);
    for (std::size_t i = 0; i < n; ++i) {
        source.Category(Plain(fvFixedEffectLabels[i]));
        TestCells(statistics, data->fvFixedEffectTests[i]);
    }
}

bool HFITParamEstimatesOutput::EffectLabels(const std::vector<EffectStruct>& effects,
                                            std::vector<std::string>& labels) const {
    if (!labels.empty()) return true;
    for (const EffectStruct& effect : effects) {
        std::vector<std::string> names;
        for (const int index : effect.fvFieldIndex) names.push_back(NameOf(fDataSource->GetVariable(index)));
        labels.push_back(names.empty() ? InterceptLabel() : EffectName(effect, names));
    }
    return true;
}

}  // namespace hierfit
