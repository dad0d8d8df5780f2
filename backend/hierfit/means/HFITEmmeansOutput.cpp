#include "hierfit/means/HFITEmmeansOutput.h"

#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/store/EffectNaming.h"
#include "hierfit/tables/MessageKeys.h"
#include "hierfit/tables/TableParts.h"
#include "host/BpError.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

/// From this number of blocks on, the back-end may have left out more of them.
constexpr std::size_t kManyBlocks = 20;

std::string LabelOrName(const KEST_Variable* variable) {
    if (!variable) return "";
    return variable->GetLabel() ? variable->GetLabel() : variable->GetName();
}

}  // namespace

HFITEmmeansOutput::HFITEmmeansOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats)
    : fSysMis(kSystemMissing),
      fProcedure(procedure),
      fDataSource(dataSource),
      fpStats(stats),
      fpBuildSettings(stats->GetBuildSettings()),
      fpCustomEmmeans(stats->GetCustomEmmeans()) {}

void HFITEmmeansOutput::Run() {
    if (!fpBuildSettings) return;
    DiagnoseUnanswered();
    if (!fpCustomEmmeans || fpCustomEmmeans->empty()) return;
    PrintGrandMeans();
    for (const EmmeansData& block : *fpCustomEmmeans) PrintBlock(block);
}

void HFITEmmeansOutput::DiagnoseUnanswered() const {
    const std::vector<EmmeansSpec>& specs = fpBuildSettings->fvEmmeansSpecs;
    std::vector<bool> isAnswered(specs.size());
    for (std::size_t i = 0; fpCustomEmmeans && i < fpCustomEmmeans->size(); ++i) {
        const int index = (*fpCustomEmmeans)[i].fEmmeansIndex;
        if (index < 0) return;  // a block that prints nothing may answer any of them
        const auto at = static_cast<std::size_t>(index);
        if (at < specs.size()) isAnswered[at] = true;
    }
    for (std::size_t i = 0; i < specs.size(); ++i) {
        if (isAnswered[i] || !specs[i].fEstimateMeans) continue;
        Diagnose("request " + std::to_string(i + 1) + " for means is left out: no block of means answers it");
    }
}

void HFITEmmeansOutput::PrintGrandMeans() {
    if (!fpStats->GetModelDiagnostics()) return;
    const ModelDiagnostics& diagnostics = *fpStats->GetModelDiagnostics();
    BpPivotTable table = fProcedure->PivotTable(MakeTitle(-1), Plain("GrandMeans"), true);
    table.Note(BpAnnotation(TargetNote(*fpBuildSettings, *fDataSource)));
    if (fpCustomEmmeans->size() >= kManyBlocks && fpStats->HasWarning(kGLMM_C24)) {
        table.Caption(Translated(kGLMM_C24));
    }
    BpDimension statistics = StatisticsDimension(table);
    NumberCell(statistics, "Mean", diagnostics.fGrandMean, BpProcedure::Coefficient());
    NumberCell(statistics, "Std. Error", diagnostics.fGrandMeanStdErr, BpProcedure::Coefficient());
    BpGroup bounds = ConfidenceGroup(statistics, ConfidenceName(kConfidenceInterval, *fpBuildSettings));
    NumberCell(bounds, "Lower", diagnostics.fGrandMeanCILower, BpProcedure::Coefficient());
    NumberCell(bounds, "Upper", diagnostics.fGrandMeanCIUpper, BpProcedure::Coefficient());
}

void HFITEmmeansOutput::PrintBlock(const EmmeansData& block) {
    if (block.fEmmeansIndex < 0) return;
    const std::size_t nEMMEANS = fpBuildSettings->fvEmmeansSpecs.size();
    if (static_cast<std::size_t>(block.fEmmeansIndex) >= nEMMEANS) {
        Diagnose("a block of means is left out: it answers request " + std::to_string(block.fEmmeansIndex + 1LL) +
                 " of " + std::to_string(nEMMEANS));
        return;
    }
    BpHeading heading = fProcedure->Heading(MakeTitle(block.fEmmeansIndex));
    int position = 0;
    if (FindWarning(block.fvWarningList, kGLMM_C25, position)) {
        ReportRefusal(block, fpStats->Translate(kGLMM_C25));
        return;
    }
    PrintEstimates(heading, block);
    HFITChartOutput charts(fProcedure, fDataSource, fpStats);
    charts.BuildCustomEffectsChart(block);
    PrintContrasts(heading, block);
    PrintOverallTests(heading, block);
}

BpComposite HFITEmmeansOutput::MakeTitle(int index) const {
    const std::size_t nEMMEANS = fpBuildSettings->fvEmmeansSpecs.size();
    const char* forBlock = nEMMEANS == 1 ? "EMMEANS Effect ^1 ..." : "EMMEANS Effect ^1 block ^2 ...";
    BpComposite title(index < 0 ? "EMMEANS Grand Mean ..." : forBlock, true);
    if (index >= 0) {
        std::string effect;
        EffectText(fpBuildSettings->fvEmmeansSpecs[static_cast<std::size_t>(index)], effect);
        title.Add(Plain(effect));
        if (nEMMEANS != 1) title.Add(CountNumber(index + 1));
    }
    title.Finish();
    return title;
}

bool HFITEmmeansOutput::FindWarning(const std::vector<WarningMessage>& list, const std::string& key, int& position) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].fPattern != key) continue;
        position = static_cast<int>(i);
        return true;
    }
    return false;
}

void HFITEmmeansOutput::EffectText(const EmmeansSpec& spec, std::string& text) const {
    std::vector<std::string> names;
    for (const int index : spec.fFactors.fvFieldIndex) names.push_back(LabelOrName(fDataSource->GetVariable(index)));
    text = EffectName(spec.fFactors, names);
}

void HFITEmmeansOutput::ReportRefusal(const EmmeansData& block, const std::string& text) {
    const std::string line = "EMMEANS " + std::to_string(block.fEmmeansIndex + 1) + ": " + text;
    BpError(Translated(line), BpErrorShow::InOutput, BpErrorLevel::Warning);
}

std::string HFITEmmeansOutput::NameOfTable(const char* table, const EmmeansData& block) {
    return std::string("table \"") + table + "\" of request " + std::to_string(block.fEmmeansIndex + 1) + " for means";
}

const EmmeansSpec& HFITEmmeansOutput::SpecOf(const EmmeansData& block) const {
    return fpBuildSettings->fvEmmeansSpecs[static_cast<std::size_t>(block.fEmmeansIndex)];
}

const KEST_Variable* HFITEmmeansOutput::FindVariable(const std::string& name) const {
    return fDataSource->GetVariable(fDataSource->FindVarIndex(name, 0));
}

HFITEmmeansOutput::Factor HFITEmmeansOutput::MakeFactor(BpPivotTable& table, const KEST_Variable* variable,
                                                        std::size_t index) {
    BpDimension dimension = table.Dimension(BpVariable(variable, BpShow::InText), BpSort::AsIssued);
    dimension.Position(BpPlace::Rows, static_cast<int>(index), false, false);
    return {dimension, variable};
}

BpDataValue HFITEmmeansOutput::Level(const KEST_Variable* variable, const std::string& text) {
    fValue.SetCompleteValue(text, variable, 0);
    return BpDataValue(variable, fValue.GetObsValue(), BpPreference::AsHeader);
}

}  // namespace hierfit
