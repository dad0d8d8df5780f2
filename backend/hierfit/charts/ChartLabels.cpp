#include "hierfit/charts/ChartLabels.h"

#include <algorithm>

#include "hierfit/charts/ChartText.h"
#include "host/KEST_ValueLabelMap.h"

namespace hierfit {

ChartString VariableDisplayName(const KEST_Variable& variable) {
    return XUtility::ChartStringFromLocalCodePage(variable.GetLabel() ? variable.GetLabel() : variable.GetName());
}

const char* ValueLabel(const KEST_Variable& variable, double value) {
    return KEST_ValueLabelMap(variable.GetValueLabels()).GetLabel(value);
}

const char* ValueLabel(const KEST_Variable& variable, const std::string& value) {
    return KEST_ValueLabelMap(variable.GetValueLabels()).GetLabel(value);
}

const char* LabelOfText(const KEST_Variable& variable, const std::string& text) {
    return variable.IsString() ? ValueLabel(variable, text) : ValueLabel(variable, ParseNumber(text));
}

XVariable LabelVariable(XGraph& graph, const char* name, int index, const KEST_Variable& variable) {
    XVariable shown = graph.getVariable(name, index);
    shown.setLabel(VariableDisplayName(variable));
    shown.setKESTVariable(&variable);
    shown.addRelabels();
    return shown;
}

bool ListHasWarning(const std::vector<WarningMessage>& list, const std::string& key) {
    return std::any_of(list.begin(), list.end(),
                       [&](const WarningMessage& message) { return message.fPattern == key; });
}

void SetNumberOrText(VarDataProcessor& processor, const VarDataProcessor::_varinfo& variable, int row,
                     const std::string& text) {
    bool isWhole = false;
    const double number = ParseNumber(text, isWhole);
    if (isWhole) {
        processor.SetVariableValue(variable, row, number);
    } else {
        processor.SetStringVariableValue(variable, row, text);
    }
}

void SetByType(VarDataProcessor& processor, const VarDataProcessor::_varinfo& variable, int row, bool isString,
               const std::string& text) {
    if (isString) {
        processor.SetStringVariableValue(variable, row, text);
    } else {
        processor.SetVariableValue(variable, row, ParseNumber(text));
    }
}

VarDataProcessor::_varinfo AddVariable(VarDataProcessor& processor, const std::string& source, const char* name) {
    VarDataProcessor::_varinfo variable;
    processor.AddVariable(source, name, &variable);
    return variable;
}

}  // namespace hierfit
