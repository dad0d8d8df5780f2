#include "host/chart/view/ShownData.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/SystemMissing.h"
#include "host/chart/view/text/TextWidth.h"

namespace hierfit::chart {

namespace {

/// Longer words are cut: each level's stand in the tips of all its marks.
constexpr std::size_t kMostCharacters = 300;
constexpr std::size_t kMostCharactersOfName = 120;

/// Eight decimals do not show three significant digits of less.
constexpr double kLeastWithDecimals = 1e-6;

bool IsUsable(double number) { return std::isfinite(number) && number != kSystemMissing; }

/// Leading zeros do not tell two values apart where labels are looked for.
std::string_view WithoutLeadingZeros(std::string_view key) {
    return key.substr(std::min(key.find_first_not_of('0'), key.size()));
}

std::string PlainText(double number) { return IsUsable(number) ? fmt::format("{}", number) : std::string("."); }

/// Whole numbers in full, all others with six digits.
std::string RoundedText(double number) {
    return IsUsable(number) && std::trunc(number) != number ? fmt::format("{:.6g}", number) : PlainText(number);
}

/// How many decimals show three significant digits: a mean of counts is no count.
int DecimalsFor(double number) {
    constexpr double kMost = 8;
    return static_cast<int>(std::clamp(2 - std::floor(std::log10(std::abs(number))), 0.0, kMost));
}

/// How far numbers reach, and how far from zero.
struct Reach {
    double fLow = std::numeric_limits<double>::infinity();
    double fHigh = -std::numeric_limits<double>::infinity();
    double fLeast = std::numeric_limits<double>::infinity();  ///< of those that are not zero
    double fGreatest = 0;
    bool fIsWhole = true;

    void Add(double number) {
        fLow = std::min(fLow, number);
        fHigh = std::max(fHigh, number);
        fIsWhole = fIsWhole && std::trunc(number) == number;
        if (number != 0) fLeast = std::min(fLeast, std::abs(number));
        fGreatest = std::max(fGreatest, std::abs(number));
    }
};

/// The decimals of figures that stand in one column: three significant digits of the least, as far as those of the
/// greatest do not become too many, and two of the distance between them. Nothing where all are whole.
std::optional<int> CommonDecimals(const std::vector<document::ChartValue>& values) {
    constexpr int kMostBeyond = 2;
    constexpr double kTooManyDigits = 1e9;
    Reach reach;
    for (const document::ChartValue& value : values) {
        const double* number = std::get_if<double>(&value);
        if (number != nullptr && IsUsable(*number)) reach.Add(*number);
    }
    if (reach.fIsWhole || reach.fGreatest >= kTooManyDigits) return std::nullopt;
    const int digits = std::min(DecimalsFor(reach.fLeast), DecimalsFor(reach.fGreatest) + kMostBeyond);
    return reach.fLow < reach.fHigh ? std::max(digits, DecimalsFor(reach.fHigh - reach.fLow) - 1) : digits;
}

std::string LabelOf(const Field* field, const VariableSetting* setting) {
    if (setting != nullptr && setting->fLabel) return *setting->fLabel;
    return field == nullptr ? std::string() : field->fLabel;
}

std::optional<KEST_Format> FormatOf(const Field* field, const VariableSetting* setting) {
    if (setting != nullptr && setting->fFormat) return setting->fFormat;
    if (setting != nullptr && setting->fpVariable != nullptr) return setting->fpVariable->GetFormat();
    return field == nullptr ? std::nullopt : field->fFormat;
}

}  // namespace

std::string CutName(std::string_view name) { return CutCharacters(name, kMostCharactersOfName); }

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
    if (number == nullptr || !IsUsable(*number)) return std::nullopt;
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

std::string ShownVariable::Figure(double number) const {
    if (!IsUsable(number) || (!fFigureDecimals && std::trunc(number) == number)) return InFormat(number);
    const int decimals = fFigureDecimals.value_or(DecimalsFor(number));
    const double least = std::pow(10.0, -decimals) / 2;
    if (number != 0 && std::abs(number) < std::max(least, kLeastWithDecimals)) return RoundedText(number);
    if (!fFormat || fFormat->IsString()) return fmt::format("{:.{}f}", number, decimals);
    KEST_Format format = *fFormat;
    format.fDecimals = std::max(format.fDecimals, static_cast<std::uint8_t>(decimals));
    const OBS value(number);
    return ToString(&value, format);
}

ShownData::ShownData(const Specification& specification, const std::vector<document::ChartSource>& data,
                     const std::vector<VariableSetting>& settings)
    : fpSpecification(&specification) {
    std::unordered_map<std::string_view, int> counts;
    for (const document::ChartSource& source : data) {
        for (const document::ChartVariable& variable : source.fvVariables) {
            const int index = counts[variable.fName]++;
            fvEntries.push_back({source.fName, variable.fName,
                                 ShownVariable(variable, FieldOf(source.fName, variable.fName),
                                               SettingOf(settings, variable.fName, index))});
        }
    }
}

const Field* ShownData::FieldOf(std::string_view source, std::string_view name) const {
    for (const Field& field : fpSpecification->fvFields) {
        if (field.fName == name && (field.fSource.empty() || field.fSource == source)) return &field;
    }
    return nullptr;
}

const VariableSetting* ShownData::SettingOf(const std::vector<VariableSetting>& settings, std::string_view name,
                                            int index) {
    for (const VariableSetting& setting : settings) {
        if (setting.fName == name && setting.fIndex == index) return &setting;
    }
    return nullptr;
}

const ShownVariable* ShownData::FindNamed(std::string_view source, std::string_view name) const {
    for (const Entry& entry : fvEntries) {
        if (entry.fName == name && (source.empty() || entry.fSource == source)) return &entry.fVariable;
    }
    return nullptr;
}

const ShownVariable* ShownData::FindAny(std::string_view source, std::string_view reference) const {
    if (reference.empty()) return nullptr;
    for (const Field& field : fpSpecification->fvFields) {
        const bool isSourceMeant = source.empty() || field.fSource.empty() || field.fSource == source;
        if (field.fSlot == reference && isSourceMeant) {
            return FindNamed(field.fSource.empty() ? source : field.fSource, field.fName);
        }
    }
    return FindNamed(source, reference);
}

bool ShownData::Lacks(std::string_view source, std::string_view reference) const {
    const auto isOfSource = [&](const Entry& entry) { return source.empty() || entry.fSource == source; };
    return std::ranges::any_of(fvEntries, isOfSource) && FindAny(source, reference) == nullptr;
}

const ShownVariable* ShownData::Find(std::string_view source, std::string_view reference) const {
    const ShownVariable* variable = FindAny(source, reference);
    return variable != nullptr && variable->IsWritten() ? variable : nullptr;
}

std::string ShownData::LabelOf(std::string_view source, std::string_view reference) const {
    const ShownVariable* variable = FindAny(source, reference);
    return variable == nullptr ? std::string() : variable->Label();
}

}  // namespace hierfit::chart
