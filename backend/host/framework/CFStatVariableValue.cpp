#include "host/CFStatVariableValue.h"

#include <utility>

#include "host/context/RunContext.h"
#include "host/data/Number.h"

namespace hierfit {

namespace {

std::optional<OBS> MakeValue(const std::string& text, const KEST_Variable& variable) {
    if (variable.IsString()) return OBS(text);
    const std::optional<double> number = data::ParseNumber(text);
    return number ? std::optional(OBS(*number)) : std::nullopt;
}

}  // namespace

CFStatVariableValue::CFStatVariableValue(std::string text) : fText(std::move(text)) {}

void CFStatVariableValue::SetStringValue(const std::string& text) {
    fText = text;
    fValue.reset();
}

// A null variable is no miss of its own: the look-up that gave it was one.
bool CFStatVariableValue::LoadObsValue(const KEST_Variable* variable, int) {
    fValue.reset();
    if (!variable) return false;
    fValue = MakeValue(fText, *variable);
    auto* run = context::RunContext::CurrentOrNull();
    if (!fValue && run) {
        run->SetMiss(context::Miss::Kind::Value, fText, variable->GetName(), run->GetTouchedNode());
    }
    return fValue.has_value();
}

bool CFStatVariableValue::SetCompleteValue(const std::string& text, const KEST_Variable* variable, int flags) {
    SetStringValue(text);
    return LoadObsValue(variable, flags);
}

}  // namespace hierfit
