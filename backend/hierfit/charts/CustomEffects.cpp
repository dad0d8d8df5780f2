#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/tables/MessageKeys.h"
#include "host/Diagnose.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

constexpr const char* kSource = "source_0";
constexpr const char* kEffects[] = {"effect1", "effect2", "effect3"};

using Handle = VarDataProcessor::_varinfo;

/// The two rows of a mean: one each for its limits, where they are known.
void WriteMargin(VarDataProcessor& processor, const Handle& margin, const EstimateData& estimates, std::size_t v) {
    bool hasLower = false;
    bool hasUpper = false;
    const double lower = ParseNumber(EntryOf(estimates.fCILower, v), hasLower);
    const double upper = ParseNumber(EntryOf(estimates.fCIUpper, v), hasUpper);
    const int row = static_cast<int>(2 * v);
    if (hasLower || hasUpper) processor.SetVariableValue(margin, row, hasLower ? lower : upper);
    if (hasUpper) processor.SetVariableValue(margin, row + 1, upper);
}

void WriteEffects(VarDataProcessor& processor, const std::vector<Handle>& effects, const EstimateData& estimates,
                  std::size_t v) {
    const int row = static_cast<int>(2 * v);
    for (std::size_t j = 0; j < effects.size(); ++j) {
        const std::string text = j < estimates.fvFactorCoords.size() ? EntryOf(estimates.fvFactorCoords[j], v) : "";
        SetNumberOrText(processor, effects[j], row, text);
        SetNumberOrText(processor, effects[j], row + 1, text);
    }
}

void WriteMeans(VarDataProcessor& processor, const Handle& target, const std::vector<Handle>& effects,
                const Handle& margin, const EstimateData& estimates) {
    if (estimates.fvFactorCoords.empty()) return;
    for (std::size_t v = 0; v < estimates.fvFactorCoords.front().fvValues.size(); ++v) {
        bool isWhole = false;
        const double mean = ParseNumber(EntryOf(estimates.fMean, v), isWhole);
        if (!isWhole) continue;
        const int row = static_cast<int>(2 * v);
        processor.SetVariableValue(target, row, mean);
        processor.SetVariableValue(target, row + 1, mean);
        WriteMargin(processor, margin, estimates, v);
        WriteEffects(processor, effects, estimates, v);
    }
}

/// One factor needs no colour, no legend, and the room of the legend.
void RemoveColor(std::string& xml) {
    EraseFromThrough(xml, "<color", "/>");
    EraseFromThrough(xml, "<legend id=\"legend\">", "</legend>");
    const std::size_t width = xml.find("75%");
    if (width != std::string::npos) xml.replace(width, 2, "99");
}

void LabelAxis(XGraph& graph, const KEST_Variable& variable) {
    XVariable shown = graph.getVariable(kEffects[0], 0);
    shown.setLabel(VariableDisplayName(variable));
    const int level = variable.GetMeasurementLevel();
    const bool isCategorical = level == 1 || level == 2;
    shown.setCategorical(isCategorical);
    if (!isCategorical) return;
    shown.setKESTVariable(&variable);
    shown.addRelabels();
}

void LabelPanels(XGraph& graph, const KEST_Variable& variable) {
    XVariable shown = LabelVariable(graph, kEffects[2], 0, variable);
    shown.setFormatBasedOnKESTVariable(&variable);
    ChartString prefix = VariableDisplayName(variable);
    prefix += ChartString(" = ");
    shown.SetFormatPrefix(prefix);
}

void LabelFactors(XDocument& document, const std::vector<const KEST_Variable*>& variables) {
    try {
        XGraph graph = document.getExternalGraph();
        if (!variables.empty()) LabelAxis(graph, *variables[0]);
        if (variables.size() > 1) LabelVariable(graph, kEffects[1], 0, *variables[1]);
        if (variables.size() > 2) LabelPanels(graph, *variables[2]);
    } catch (...) {  // the chart goes out without what is not labelled yet
        NoteDropped();
    }
}

}  // namespace

void HFITChartOutput::BuildCustomEffectsChart(const EmmeansData& block) {
    if (!fpState->fpStats->GetBuildSettings()) return;
    if (ListHasWarning(block.fvWarningList, kGLMM_C20) || ListHasWarning(block.fvWarningList, kGLMM_C25)) return;
    XViZTemplate viz;
    viz.setTemplateInternalName("GLMMCustomEffects");
    VarDataProcessor processor;
    processor.AddDataSource(kSource, 0);
    const auto add = [&](const char* name, bool isFactor, const KEST_Format* format, const std::string& label) {
        const Handle variable = AddVariable(processor, kSource, name);
        viz.addVariable(name, name, isFactor, "", kSource, format, label);
        return variable;
    };
    const Handle target = add("targetValue", false, &fpState->fTargetFormat, fpState->fTargetLabel);
    std::vector<Handle> effects;
    for (const char* effect : kEffects) effects.push_back(add(effect, true, nullptr, ""));
    const Handle margin = add("confMargin", false, &fpState->fTargetFormat, fpState->fTargetLabel);

    std::vector<const KEST_Variable*> variables;
    for (const Coordinates& factor : block.fEstimates.fvFactorCoords) {
        if (const KEST_Variable* variable = FindVariable(factor.fField)) variables.push_back(variable);
    }
    WriteMeans(processor, target, effects, margin, block.fEstimates);

    std::string xml;
    std::string unused;
    viz.convert(xml, unused);
    if (xml.empty()) return;
    PatchCustomEffects(xml, block, variables);
    XDocument document(xml);
    document.setEditor(2);
    document.setLanguage();
    document.SetChartData(&processor);
    document.SetDescription(LookUpText("Estimated Means: Custom Effects"));
    LabelFactors(document, variables);
    document.SendChart(true, false, false);
}

void HFITChartOutput::PatchCustomEffects(std::string& xml, const EmmeansData& block,
                                         const std::vector<const KEST_Variable*>& variables) const {
    const std::size_t title = xml.find(">TitleText");
    if (title != std::string::npos) {
        ReplaceFirst(xml, "TitleText", XUtility::ChartStringFromOLANG("Estimates").toUTF8(), title);
    }
    ReplaceFirst(xml, "FootnoteText", MakeFixedAtFootnote(block).toUTF8());
    const std::string firstName = variables.empty() ? "" : VariableDisplayName(*variables.front()).toUTF8();
    const std::size_t popup = ReplaceFirst(xml, "popup1", firstName);
    if (popup != std::string::npos) ReplaceFirst(xml, "popup2", LookUpText("Estimated Mean").toUTF8(), popup);
    const std::size_t nFactors = block.fEstimates.fvFactorCoords.size();
    if (nFactors < 3) RemoveFacetingBlock(xml);
    if (nFactors < 2) RemoveColor(xml);
}

}  // namespace hierfit
