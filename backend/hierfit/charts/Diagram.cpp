// What the diagrams of effects and of coefficients share: their sources, and the patches of their template.

#include <algorithm>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/charts/NodeEdge.h"

namespace hierfit {

namespace {

constexpr std::string_view kGraphStyle = "id=\"graphStyle";
constexpr const char* kTargetSource = "targetPointSource";

/// The plot is a third wider than the nodes reach, for the target.
void SetLimits(std::string& xml, std::size_t nodeCount) {
    const auto n = static_cast<double>(nodeCount);
    const std::size_t place = ReplaceFirst(xml, "9.3", NumberToText(std::max(n * 4 / 3, 2.0)));
    if (nodeCount == 0 && place != std::string::npos) {
        const std::size_t end = xml.find("/>", place);
        if (end != std::string::npos) xml.insert(end, " min=\"0\" ");
    }
    ReplaceFirst(xml, "7.0", NumberToText(std::max(n, 1.0)));
}

void SetMargin(std::string& xml, std::size_t nodeCount) {
    const std::size_t place = xml.find(kGraphStyle);
    if (nodeCount < 2 || nodeCount > 8 || place == std::string::npos) return;
    const std::size_t behindQuote = std::min(place + kGraphStyle.size() + 1, xml.size());
    xml.insert(behindQuote, " margin-bottom=\"30px\" ");
}

/// Replaces the one character between the quotes of an attribute; gives the attribute's place.
std::size_t SetLimit(std::string& xml, std::string_view attribute, std::size_t from, double limit) {
    const std::size_t place = xml.find(attribute, from);
    if (place == std::string::npos) return place;
    const std::size_t character = place + attribute.size() + 1;
    if (character < xml.size()) xml.replace(character, 1, NumberToText(limit));
    return place;
}

void SetLegendLimits(std::string& xml, const ChartState& state) {
    if (!state.fHasLineWeights) return;
    const std::size_t place = SetLimit(xml, "high=", 0, state.fMaxLineWeight);
    if (place != std::string::npos) SetLimit(xml, "low=", place, state.fMinLineWeight);
}

void HideSignLegend(std::string& xml) {
    const std::size_t place = xml.find("id=\"legendStyle\"");
    if (place != std::string::npos) xml.insert(place - std::min<std::size_t>(place, 1), " visible=\"false\" ");
}

}  // namespace

void HFITChartOutput::AddTargetSource(VarDataProcessor& processor, std::size_t nodeCount) const {
    processor.AddDataSource(kTargetSource, 0);
    const auto x = AddVariable(processor, kTargetSource, "X");
    const auto y = AddVariable(processor, kTargetSource, "Y");
    const auto type = AddVariable(processor, kTargetSource, "Type");
    const auto nodes = AddVariable(processor, kTargetSource, "Nodes");
    const auto tooltip = AddVariable(processor, kTargetSource, "PointTooltip");
    processor.SetStringVariableValue(type, 0, "target");
    processor.SetStringVariableValue(nodes, 0, fpState->fTargetName);
    processor.SetStringVariableValue(tooltip, 0, MakeTargetTooltip());
    if (nodeCount == 0) return;
    const auto n = static_cast<double>(nodeCount);
    processor.SetVariableValue(x, 0, n);
    processor.SetVariableValue(y, 0, (n + 1) / 2);
}

void HFITChartOutput::AddNodeEdgeSources(VarDataProcessor& processor) const {
    const auto add = [&](const std::string& source, std::initializer_list<const char*> names) {
        processor.AddDataSource(source, 0);
        for (const char* name : names) processor.AddVariable(source, name, nullptr);
    };
    add(fpState->fPointSourceName, {"X", "Y", "Label_X", "Label_Y", "Type", "Nodes", "PointTooltip"});
    add(fpState->fEdgeSourceName, {"FromX", "FromY", "ToX", "ToY", "Weight", "Weight2", "LineTooltip"});
}

void HFITChartOutput::WriteNode(VarDataProcessor& processor, int row, const NodeGeometry& geometry,
                                double radius) const {
    const std::string& points = fpState->fPointSourceName;
    const std::string& edges = fpState->fEdgeSourceName;
    processor.SetVariableValue(points, "X", row, geometry.fFromX);
    processor.SetVariableValue(edges, "FromX", row, geometry.fFromX);
    processor.SetVariableValue(points, "Y", row, geometry.fFromY);
    processor.SetVariableValue(edges, "FromY", row, geometry.fFromY);
    processor.SetVariableValue(points, "Label_X", row, geometry.fFromX + LabelOffset(radius));
    processor.SetVariableValue(points, "Label_Y", row, geometry.fFromY);
}

void HFITChartOutput::WriteLineEnd(VarDataProcessor& processor, int row, const NodeGeometry& geometry) const {
    processor.SetVariableValue(fpState->fEdgeSourceName, "ToX", row, geometry.fToX);
    processor.SetVariableValue(fpState->fEdgeSourceName, "ToY", row, geometry.fToY);
}

void HFITChartOutput::WriteWeight(VarDataProcessor& processor, int row, double significance) {
    const double weight = SignificanceToWeight(significance);
    processor.SetVariableValue(fpState->fEdgeSourceName, "Weight", row, weight);
    fpState->fHasLineWeights = true;
    fpState->fMinLineWeight = std::min(fpState->fMinLineWeight, weight);
    fpState->fMaxLineWeight = std::max(fpState->fMaxLineWeight, weight);
}

void HFITChartOutput::SendNodeEdgeChart(std::size_t nodeCount, const char* titleKey, const VarDataProcessor& processor,
                                        bool hidesLegend) {
    std::string xml = ReadTemplate("GLMMFixedCoefficients.viztemplate");
    SetLimits(xml, nodeCount);
    SetMargin(xml, nodeCount);
    const ChartString title = LookUpText(titleKey);
    ReplaceFirst(xml, "title1", title.toUTF8());
    EmbedTargetHistogram(xml);
    SetLegendLimits(xml, *fpState);
    if (hidesLegend) {
        HideSignLegend(xml);
    } else {
        ReplaceFirst(xml, "Coefficient Estimate", LookUpText("Coefficient Estimate").toUTF8());
    }
    XDocument document(xml);
    document.setEditor(2);
    document.setLanguage();
    document.SetDescription(title);
    document.SetChartData(&processor);
    document.SendChart(true, false, false);
}

}  // namespace hierfit
