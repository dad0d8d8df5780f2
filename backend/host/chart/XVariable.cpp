#include <fmt/format.h>

#include "host/XDocument.h"
#include "host/chart/Draft.h"

namespace hierfit {

namespace {

std::vector<document::ChartCall::Argument> NameOf(const KEST_Variable* variable) {
    if (!variable) return {};
    return {std::string(variable->GetName())};
}

}  // namespace

XVariable XGraph::getVariable(const std::string& name, int index) {
    return {fpDraft, fpDraft->FindOrAddVariable(name, index)};
}

void XVariable::setLabel(const ChartString& label) {
    const std::string text = label.toUTF8();
    fpDraft->Record(fEntry, "setLabel", {text});
    fpDraft->SettingOf(fEntry).fLabel = text;
}

void XVariable::setFormat(const KEST_Format& format) {
    const std::array<int, 3> numbers{format.fWidth, static_cast<int>(format.fType), format.fDecimals};
    fpDraft->Record(fEntry, "setFormat", {numbers});
    fpDraft->SettingOf(fEntry).fFormat = format;
}

void XVariable::setKESTVariable(const KEST_Variable* variable) {
    fpDraft->Record(fEntry, "setKESTVariable", NameOf(variable));
    fpDraft->SettingOf(fEntry).fpVariable = variable;
}

void XVariable::setFormatBasedOnKESTVariable(const KEST_Variable* variable) {
    fpDraft->Record(fEntry, "setFormatBasedOnKESTVariable", NameOf(variable));
    if (variable) fpDraft->SettingOf(fEntry).fFormat = variable->GetFormat();
}

void XVariable::setCategorical(bool categorical) {
    fpDraft->Record(fEntry, "setCategorical", {categorical});
    fpDraft->SettingOf(fEntry).fIsCategorical = categorical;
}

void XVariable::SetFormatPrefix(const ChartString& prefix) {
    const std::string text = prefix.toUTF8();
    fpDraft->Record(fEntry, "SetFormatPrefix", {text});
    fpDraft->SettingOf(fEntry).fPrefix = text;
}

void XVariable::addRelabel(const ChartString& value, const ChartString& label) {
    std::string from = value.toUTF8();
    std::string to = label.toUTF8();
    fpDraft->Record(fEntry, "addRelabel", {from, to});
    fpDraft->SettingOf(fEntry).fvLabels.emplace_back(std::move(from), std::move(to));
}

void XVariable::addRelabel(double value, const ChartString& label) {
    addRelabel(ChartString(fmt::format("{}", value).c_str()), label);
}

void XVariable::addRelabels() {
    fpDraft->Record(fEntry, "addRelabels", {});
    fpDraft->SettingOf(fEntry).fUsesValueLabels = true;
}

}  // namespace hierfit
