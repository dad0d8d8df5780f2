#include "hierfit/charts/HFITChartOutput.h"

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "host/ConfidenceLevel.h"
#include "host/FetchFile.h"
#include "host/PathFactory.h"

namespace hierfit {

namespace {

/// The number by which the path finder knows the module that asks.
constexpr int kPathModule = 3;

#ifdef _WIN32
constexpr const char* kSeparator = "\\";
#else
constexpr const char* kSeparator = "/";
#endif

std::unique_ptr<FacSTDictionary> MakeDictionary() {
    const std::string location = PathFactory::getPathInstance(kPathModule).GetStringTableLocation();
    auto dictionary = std::make_unique<FacSTDictionary>(location);
    dictionary->SetProcedure("Generalized Linear Mixed Models");
    dictionary->SetGlobalStringTable(location);
    return dictionary;
}

std::string LocalText(const char* text) { return XUtility::ChartStringFromLocalCodePage(text).toUTF8(); }

void DescribeTarget(ChartState& state, const KEST_Variable& target) {
    state.fTargetFormat = target.GetFormat();
    state.fTargetName = LocalText(target.GetName());
    state.fTargetLabel = state.fTargetHasLabel ? LocalText(target.GetLabel()) : state.fTargetName;
}

}  // namespace

HFITChartOutput::HFITChartOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats)
    : fpState(std::make_unique<ChartState>()) {
    fpState->fProcedure = procedure;
    fpState->fpStats = stats;
    fpState->fDataSource = dataSource;
    fpState->fpDictionary = MakeDictionary();
    const BuildSettings* settings = stats->GetBuildSettings();
    if (!settings) return;
    NoteConfidenceLevel(settings->fConfidenceLevel);
    fpState->fTargetIndex = settings->fTargetIndex;
    const KEST_Variable* target = dataSource->GetVariable(settings->fTargetIndex);
    fpState->fTargetHasLabel = target && target->GetLabel();
    if (target) DescribeTarget(*fpState, *target);
}

HFITChartOutput::~HFITChartOutput() = default;

std::string HFITChartOutput::LookUp(const char* key) const { return fpState->fpDictionary->LookUp(key); }

ChartString HFITChartOutput::LookUpText(const char* key) const { return XUtility::ChartStringFromOLANG(LookUp(key)); }

const KEST_Variable* HFITChartOutput::FindVariable(const std::string& name) const {
    const int index = fpState->fDataSource->FindVarIndex(name, 0);
    return index < 0 ? nullptr : fpState->fDataSource->GetVariable(index);
}

std::string HFITChartOutput::ReadTemplate(const char* name) {
    const std::string folder = PathFactory::getPathInstance(kPathModule).GetBaseDirectory() + "template";
    return FetchFile::fetch(folder + kSeparator + name, true, true);
}

std::string HFITChartOutput::MakeTargetTooltip() const {
    std::string tooltip = fpState->fTargetName + "\n";
    if (fpState->fTargetHasLabel) tooltip += fpState->fTargetLabel + "\n";

    const BuildSettings& settings = *fpState->fpStats->GetBuildSettings();
    const std::string distribution = fpState->fpStats->DistributionText(settings.fDistribution, true);
    std::string link = fpState->fpStats->LinkText(settings.fLink, settings.fDistribution, true);
    if (settings.fLink == LinkFunctionType::POWER) link += " (" + settings.fLinkParamText + ")";

    std::string model = LookUp("Probability Distribution ^1, Link Function ^2 ...");
    const std::size_t place = ReplaceFirst(model, "^1", distribution);
    ReplaceFirst(model, "^2", link, place == std::string::npos ? 0 : place + distribution.size());
    ReplaceFirst(model, "\\n", "\n");
    tooltip += model;
    if (tooltip.find("\\:") != std::string::npos) std::erase(tooltip, '\\');
    return XUtility::ChartStringFromOLANG(tooltip).toUTF8();
}

ChartString HFITChartOutput::MakeFixedAtFootnote(const EmmeansData& block) const {
    constexpr const char* kPlace = "999";
    if (block.fvLabels.empty()) return {};
    std::string text = LookUp("Continuous predictors fixed at [%1=%2:,^1=^2:]1");
    ReplaceFirst(text, "[%1=%2:,^1=^2:]1", kPlace);
    ChartString footnote = XUtility::ChartStringFromOLANG(text);

    ChartString list;
    for (const EmmeansLabel& label : block.fvLabels) {
        if (!list.empty()) list += ChartString(", ");
        const KEST_Variable* variable = FindVariable(label.fPattern);
        const KEST_Format format = variable ? variable->GetFormat() : kFigureFormat;
        list += XUtility::ChartStringFromLocalCodePage(label.fPattern);
        list += ChartString(" = ");
        list += XUtility::ChartStringFromOLANG(ToString(label.fValue.GetObsValue(), format));
    }
    footnote.replaceSubstring(ChartString(kPlace), list);
    return footnote;
}

}  // namespace hierfit
