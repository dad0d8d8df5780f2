// What the charts of all kinds of contrasts have in common.

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"

namespace hierfit {

bool HFITChartOutput::CanChartContrasts(const EmmeansData& block) const {
    const std::size_t nColumns = block.fContrasts.fvFactorCoords.size();
    if (nColumns == 0 || !fpState->fpStats->GetBuildSettings() || block.fvOverallTests.empty()) return false;
    if (nColumns > 1) return true;
    Diagnose("a chart of contrasts is left out: its contrasts have one factor column, not two");
    return false;
}

std::string HFITChartOutput::ContrastTooltip(const char* key, const std::string& level,
                                             const std::string& reference) const {
    std::string text = LookUp(key);
    ReplaceFirst(text, "^1", fpState->fTargetLabel);
    ReplaceFirst(text, "^2", level);
    ReplaceFirst(text, "^3", reference);
    return XUtility::ChartStringFromOLANG(text).toUTF8();
}

std::string HFITChartOutput::ContrastCaption(const char* key, const std::string& compareField,
                                             const std::string& reference) const {
    const KEST_Variable* compare = FindVariable(compareField);
    std::string text = LookUp(key);
    ReplaceAll(text, "^1", fpState->fTargetLabel);
    ReplaceAll(text, "^2", compare ? VariableDisplayName(*compare).toUTF8() : "");
    ReplaceAll(text, "^3", reference);
    return XUtility::ChartStringFromOLANG(text).toUTF8();
}

ChartString HFITChartOutput::MakeAdjustmentFootnote(const EmmeansData& block) const {
    constexpr const char* kTexts[] = {"Least Significant significance adjust ^1",
                                      "Sequential Bonferroni significance adjust ^1",
                                      "Sequential Sidak significance adjust ^1"};
    const int adjustment = fpState->fpStats->GetBuildSettings()->fPAdjustment;
    if (adjustment < PAdjustment::LSD || adjustment >= PAdjustment::OTHER) return {};
    std::string text = LookUp(kTexts[adjustment]);
    if (adjustment != PAdjustment::LSD) text += "\n" + LookUp("Confidence interval bounds are approximate.");
    const OBS level(block.fContrasts.fAdjustedSigLevel);
    ReplaceFirst(text, "^1", ToString(&level, kFigureFormat));
    return XUtility::ChartStringFromOLANG(text);
}

}  // namespace hierfit
