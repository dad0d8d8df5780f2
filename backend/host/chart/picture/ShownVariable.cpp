#include "host/chart/picture/ShownVariable.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/KEST_DataSource.h"
#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Numbers.h"
#include "host/context/RunContext.h"

namespace hierfit::chart {

namespace {

/// Longer words are cut: each level's stand in the tips of all its marks.
constexpr std::size_t kMostCharacters = 300;

/// Eight decimals do not show three significant digits of less.
constexpr double kLeastWithDecimals = 1e-6;

/// Leading zeros do not tell two values apart where labels are looked for.
std::string_view WithoutLeadingZeros(std::string_view key) {
    return key.substr(std::min(key.find_first_not_of('0'), key.size()));
}

std::string PlainText(double number) { return IsFigure(number) ? fmt::format("{}", number) : std::string("."); }

/// Whole numbers in full, all others with six digits.
std::string RoundedText(double number) {
    return IsFigure(number) && std::trunc(number) != number ? fmt::format("{:.6g}", number) : PlainText(number);
}

std::string LabelOf(const Field* field, const VariableSetting* setting) {
    if (setting != nullptr && setting->fLabel) return *setting->fLabel;
    return field == nullptr ? std::string() : field->fLabel;
}

std::optional<KEST_Format> FormatOf(const Field* field, const VariableSetting* setting) {
    if (setting != nullptr && setting->fFormat) return setting->fFormat;
    if (setting != nullptr && setting->fpVariable != nullptr) return setting->fpVariable->GetFormat();
    if (field != nullptr && field->fFormat) return field->fFormat;
    const KEST_Variable* variable = FindRunVariable(LabelOf(field, setting));
    return variable == nullptr ? std::nullopt : std::optional(variable->GetFormat());
}

}  // namespace

ShownVariable::ShownVariable(const document::ChartVariable& variable, const Field* field,
                             const VariableSetting* setting)
    : fpVariable(&variable),
      fpSetting(setting),
      fLabel(LabelOf(field, setting)),
      fName(CutName(fLabel)),
      fFormat(FormatOf(field, setting)),
      fFigureDecimals(CommonDecimals(variable.fvValues)) {
    for (const document::ChartValue& value : variable.fvValues) {
        fIsWritten = fIsWritten || !std::holds_alternative<std::monostate>(value);
    }
    if (setting == nullptr) return;
    fPrefix = setting->fPrefix;
    for (const auto& [key, label] : setting->fvLabels) {
        fLabels.insert_or_assign(key, label);
        fLabelsOfStripped.insert_or_assign(WithoutLeadingZeros(key), label);
    }
}

std::optional<double> ShownVariable::NumberAt(std::size_t row) const {
    if (row >= Rows()) return std::nullopt;
    const double* number = std::get_if<double>(&At(row));
    if (number == nullptr || !IsFigure(*number)) return std::nullopt;
    return *number;
}

std::optional<std::string_view> ShownVariable::GivenLabel(std::string_view key) const {
    if (const auto exact = fLabels.find(key); exact != fLabels.end()) return exact->second;
    const auto stripped = fLabelsOfStripped.find(WithoutLeadingZeros(key));
    if (stripped == fLabelsOfStripped.end()) return std::nullopt;
    return stripped->second;
}

std::optional<std::string_view> ShownVariable::ValueLabel(const document::ChartValue& value) const {
    if (fpSetting == nullptr || !fpSetting->fUsesValueLabels || fpSetting->fpVariable == nullptr) return std::nullopt;
    const KEST_ValueLabelMap map(fpSetting->fpVariable->GetValueLabels());
    const double* number = std::get_if<double>(&value);
    const char* label = number != nullptr ? map.GetLabel(*number) : map.GetLabel(std::get<std::string>(value));
    if (label == nullptr) return std::nullopt;
    return label;
}

std::string ShownVariable::Key(const document::ChartValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    const double* number = std::get_if<double>(&value);
    return number != nullptr ? PlainText(*number) : std::get<std::string>(value);
}

bool ShownVariable::IsLabelled(const document::ChartValue& value) const {
    return GivenLabel(Key(value)) || (!std::holds_alternative<std::monostate>(value) && ValueLabel(value));
}

std::string ShownVariable::ValueBehind(const document::ChartValue& value) const {
    const std::string key = Key(value);
    return Unprefixed(value) == key ? std::string() : CutCharacters(key, kMostCharacters);
}

std::string ShownVariable::Unprefixed(const document::ChartValue& value) const {
    const double* number = std::get_if<double>(&value);
    const std::string key = Key(value);
    if (const auto label = GivenLabel(key)) return std::string(*label);
    if (const auto label = ValueLabel(value)) return std::string(*label);
    return number != nullptr ? InFormat(*number) : key;
}

std::string ShownVariable::Words(const document::ChartValue& value) const {
    if (std::holds_alternative<std::monostate>(value)) return {};
    return CutCharacters(fPrefix + Unprefixed(value), kMostCharacters);
}

std::string ShownVariable::InFormat(double number) const {
    if (!fFormat || fFormat->IsString()) return RoundedText(number);
    const OBS value(number);
    return ToString(&value, *fFormat);
}

std::string ShownVariable::InFormat(const std::string& text) const {
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && last == end && IsFigure(number);
    return isNumber && fFormat && !fFormat->IsString() ? InFormat(number) : text;
}

std::string ShownVariable::Figure(double number) const {
    if (!IsFigure(number) || (!fFigureDecimals && std::trunc(number) == number)) return InFormat(number);
    const int decimals = fFigureDecimals.value_or(DecimalsFor(number));
    const double least = std::pow(10.0, -decimals) / 2;
    if (number != 0 && std::abs(number) < std::max(least, kLeastWithDecimals)) return RoundedText(number);
    if (!fFormat || fFormat->IsString()) return fmt::format("{:.{}f}", number, decimals);
    KEST_Format format = *fFormat;
    format.fDecimals = std::max(format.fDecimals, static_cast<std::uint8_t>(decimals));
    const OBS value(number);
    return ToString(&value, format);
}

const KEST_Variable* FindRunVariable(const std::string& name) {
    const context::RunContext* run = context::RunContext::CurrentOrNull();
    const KEST_DataSource* source = run == nullptr ? nullptr : run->GetDataSource();
    if (source == nullptr || name.empty()) return nullptr;
    return source->GetVariable(source->FindVarIndex(name, 0));
}

std::string LabelOfNamed(const std::string& name) {
    const KEST_Variable* variable = FindRunVariable(name);
    return variable != nullptr && variable->GetLabel() != nullptr ? variable->GetLabel() : name;
}

std::optional<double> PlaceableAt(const ShownVariable* variable, std::size_t row) {
    return variable == nullptr ? std::nullopt : Placeable(variable->NumberAt(row));
}

std::string WordsAt(const ShownVariable* variable, std::size_t row) {
    return variable == nullptr || row >= variable->Rows() ? std::string() : variable->Words(variable->At(row));
}

}  // namespace hierfit::chart
