#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/charts/NodeEdge.h"
#include "host/KEST_ValueLabelMap.h"

namespace hierfit {

namespace {

/// Coefficients of effects from this number on are not drawn.
constexpr int kShownEffects = 10;

bool IsShown(const ParamEstimate& estimate) {
    if (estimate.fParam.fIsIntercept && estimate.fSig < 1.0) return true;
    return !estimate.fIsRedundant && estimate.fStatName == "fixedEffectIndex" && estimate.fStatIndex < kShownEffects;
}

std::vector<const ParamEstimate*> ShownEstimates(const ParamCollect& parameters) {
    std::vector<const ParamEstimate*> estimates;
    for (const ParamGroup& group : parameters.fvFixedParamEstim) {
        for (const ParamEstimate& estimate : group.fvParamEstimates) {
            if (IsShown(estimate)) estimates.push_back(&estimate);
        }
    }
    return estimates;
}

std::string TipFigure(double number) {
    const OBS value(number);
    return ToString(&value, kTipFormat);
}

/// What a factor term stands for: its field with the value, and the labels of both.
std::string FactorTooltip(const std::string& field, const KEST_Variable& variable, const OBS* value) {
    if (!value) return "";
    std::string tip = field + " = " + ToString(value, variable.GetFormat());
    const char* valueLabel = KEST_ValueLabelMap(variable.GetValueLabels()).GetLabel(value);
    if (variable.GetLabel()) {
        tip.append("\n").append(variable.GetLabel()).append(" = ");
        if (valueLabel) tip += valueLabel;
    } else if (valueLabel) {
        tip.append(" (").append(valueLabel).append(")");
    }
    return tip;
}

const char* TypeOf(const RegressionParameter& term, const KEST_Variable& variable) {
    const std::size_t nTerms = term.fvCovariates.size() + term.fvFactors.size();
    if (nTerms > 1) return "interaction";
    return nTerms == 1 ? MeasurementType(variable) : "unknown";
}

std::string CovariateTooltip(const std::string& label, const KEST_Variable& variable) {
    return variable.GetLabel() ? label + "\n" + variable.GetLabel() : label;
}

}  // namespace

void HFITChartOutput::BuildFixedCoefficientsDiagram() {
    VarDataProcessor processor;
    const ParamCollect* parameters = fpState->fpStats->GetParamCollect();
    if (!parameters || !fpState->fpStats->GetBuildSettings()) return;
    const std::vector<const ParamEstimate*> estimates = ShownEstimates(*parameters);
    if (estimates.empty()) return;

    AddTargetSource(processor, estimates.size());
    AddNodeEdgeSources(processor);
    fpState->fHasLineWeights = true;
    double radius = 0;
    const std::vector<NodeGeometry> nodes = ComputeNodeGeometry(estimates.size(), radius);
    for (std::size_t k = 0; k < estimates.size(); ++k) {
        const int row = static_cast<int>(k);
        WriteNode(processor, row, nodes[k], radius);
        WriteWeight(processor, row, estimates[k]->fSig);
        WriteCoefficient(processor, row, *estimates[k]);
        WriteLineEnd(processor, row, nodes[k]);
        if (estimates[k]->fParam.fIsIntercept) {
            WriteIntercept(processor, row);
        } else {
            WriteTerm(processor, row, *estimates[k]);
        }
    }
    SendNodeEdgeChart(estimates.size(), "Fixed Coefficients", processor, false);
}

void HFITChartOutput::WriteCoefficient(VarDataProcessor& processor, int row, const ParamEstimate& estimate) const {
    const bool isNegative = estimate.fEstimate < 0 && estimate.fEstimate != fpState->fSysMis;
    const std::string sign = LookUpText(isNegative ? "Negative" : "Positive").toUTF8();
    const std::string tip = LookUp("Coefficient") + " = " + TipFigure(estimate.fEstimate) + "\n" + LookUp("E62317") +
                            " = " + TipFigure(estimate.fSig);
    const std::string& edges = fpState->fEdgeSourceName;
    processor.SetStringVariableValue(edges, "Weight2", row, sign);
    processor.SetStringVariableValue(edges, "LineTooltip", row, XUtility::ChartStringFromOLANG(tip).toUTF8());
}

void HFITChartOutput::WriteIntercept(VarDataProcessor& processor, int row) const {
    const std::string& points = fpState->fPointSourceName;
    processor.SetStringVariableValue(points, "Type", row, "intercept");
    processor.SetStringVariableValue(points, "Nodes", row, LookUpText("Intercept").toUTF8());
    processor.SetStringVariableValue(points, "PointTooltip", row, "");
}

void HFITChartOutput::WriteTerm(VarDataProcessor& processor, int row, const ParamEstimate& estimate) const {
    const RegressionParameter& term = estimate.fParam;
    const std::string& points = fpState->fPointSourceName;
    processor.SetStringVariableValue(points, "Nodes", row, estimate.fParamLabel);

    const bool isOfFactor = !term.fvFactors.empty();
    const std::string& field = isOfFactor ? term.fvFactors.front().fField : estimate.fParamLabel;
    const KEST_Variable* variable = FindVariable(field);
    if (!variable) return;  // neither tip nor type
    const std::string tip = isOfFactor ? FactorTooltip(field, *variable, term.fvFactors.front().fValue.GetObsValue())
                                       : CovariateTooltip(field, *variable);
    processor.SetStringVariableValue(points, "PointTooltip", row, tip);
    processor.SetStringVariableValue(points, "Type", row, TypeOf(term, *variable));
}

}  // namespace hierfit
