#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/charts/NodeEdge.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

/// Tests from this number on are not drawn.
constexpr int kShownTests = 10;

bool IsShown(const EffectTest& test) { return test.fTestID < kShownTests && test.fSig > -0.0001 && test.fSig < 1.0; }

std::vector<const EffectTest*> ShownTests(const EffectStatData& data) {
    std::vector<const EffectTest*> tests;
    for (const EffectTest& test : data.fvFixedEffectTests) {
        if (IsShown(test)) tests.push_back(&test);
    }
    return tests;
}

/// The effect that a test is about; null where the model has no such effect, or it has no fields.
const EffectStruct* EffectOf(const EffectTest& test, const std::vector<EffectStruct>& effects) {
    if (test.fTestID < 0 || static_cast<std::size_t>(test.fTestID) >= effects.size()) return nullptr;
    const EffectStruct& effect = effects[static_cast<std::size_t>(test.fTestID)];
    return effect.fvFieldIndex.empty() ? nullptr : &effect;
}

struct NodeTexts {
    std::string fName;
    std::string fTooltip;
};

/// Names joined by "*"; in the tip every variable behind the first stands in parentheses.
NodeTexts TextsOf(const std::vector<const KEST_Variable*>& variables) {
    NodeTexts texts;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        std::string tip = variables[i]->GetName();
        if (variables[i]->GetLabel()) tip.append("\n").append(variables[i]->GetLabel());
        texts.fName.append(i == 0 ? "" : "*").append(variables[i]->GetName());
        texts.fTooltip += i == 0 ? tip : "(" + tip + ")";
    }
    return texts;
}

std::string LineTooltip(const std::string& name, double significance) {
    const OBS value(significance);
    ChartString tip = XUtility::ChartStringFromOLANG(name + " = ");
    tip += XUtility::ChartStringFromOLANG(ToString(&value, kTipFormat));
    return tip.toUTF8();
}

}  // namespace

void HFITChartOutput::BuildFixedEffectsDiagram() {
    constexpr const char* kTitle = "Fixed Effects";
    const ModelDiagnostics* diagnostics = fpState->fpStats->GetModelDiagnostics();
    if (!diagnostics) return;
    fpState->fDistMean = diagnostics->fTargetDistribution.fMean;
    fpState->fDistShape = diagnostics->fTargetDistribution.fShape;
    fpState->fDistRate = diagnostics->fTargetDistribution.fRate;
    fpState->fDistR = diagnostics->fTargetDistribution.fR;
    fpState->fDistP = diagnostics->fTargetDistribution.fP;
    const BuildSettings* settings = fpState->fpStats->GetBuildSettings();
    if (!settings) return;

    VarDataProcessor processor;
    const EffectStatData* data = fpState->fpStats->GetEffectStatData();
    if (!data) return SendNodeEdgeChart(0, kTitle, processor, true);
    const std::vector<const EffectTest*> tests = ShownTests(*data);
    if (tests.empty()) return;

    AddTargetSource(processor, tests.size());
    AddNodeEdgeSources(processor);
    double radius = 0;
    const std::vector<NodeGeometry> nodes = ComputeNodeGeometry(tests.size(), radius);
    for (std::size_t k = 0; k < tests.size(); ++k) {
        const EffectStruct* effect = EffectOf(*tests[k], settings->fvFixedEffectList);
        if (!effect) {
            Diagnose("chart \"Fixed Effects\": test " + std::to_string(tests[k]->fTestID) +
                     " is left out: the model has no such effect with fields");
            continue;
        }
        const int row = static_cast<int>(k);
        WriteNode(processor, row, nodes[k], radius);
        WriteEffect(processor, row, *effect);
        WriteLineEnd(processor, row, nodes[k]);
        WriteWeight(processor, row, tests[k]->fSig);
        const std::string tip = LineTooltip(LookUp("E62317"), tests[k]->fSig);
        processor.SetStringVariableValue(fpState->fEdgeSourceName, "LineTooltip", row, tip);
    }
    SendNodeEdgeChart(tests.size(), kTitle, processor, true);
}

void HFITChartOutput::WriteEffect(VarDataProcessor& processor, int row, const EffectStruct& effect) const {
    std::vector<const KEST_Variable*> variables;
    for (const int index : effect.fvFieldIndex) {
        if (const KEST_Variable* variable = fpState->fDataSource->GetVariable(index)) variables.push_back(variable);
    }
    const bool isInteraction = effect.fvFieldIndex.size() > 1;
    const char* plainType = variables.empty() ? "unknown" : MeasurementType(*variables.front());
    const NodeTexts texts = TextsOf(variables);
    const std::string& points = fpState->fPointSourceName;
    processor.SetStringVariableValue(points, "Type", row, isInteraction ? "interaction" : plainType);
    processor.SetStringVariableValue(points, "Nodes", row, texts.fName);
    processor.SetStringVariableValue(points, "PointTooltip", row, texts.fTooltip);
}

}  // namespace hierfit
