#include "host/chart/picture/graphs/NetworkLegends.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <set>
#include <string_view>

#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

using document::NodeKind;

constexpr double kLargestWeight = 99;

constexpr std::array<std::pair<std::string_view, NodeKind>, 5> kKinds = {{
    {"continuous", NodeKind::Continuous},
    {"categorical", NodeKind::Categorical},
    {"ordinal", NodeKind::Ordinal},
    {"interaction", NodeKind::Interaction},
    {"intercept", NodeKind::Intercept},
}};

NodeKind KindOf(const document::ChartValue& value) {
    const std::string* text = std::get_if<std::string>(&value);
    for (const auto& [name, kind] : kKinds) {
        if (text != nullptr && *text == name) return kind;
    }
    return NodeKind::Unknown;
}

/// A weight that a legend can name: a small whole number.
std::optional<double> NamedWeight(const std::string& text) {
    double weight = -1;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, weight);
    const bool isNamed = error == std::errc() && last == end && weight >= 0 && weight <= kLargestWeight;
    return isNamed && weight == std::floor(weight) ? std::optional(weight) : std::nullopt;
}

bool IsText(const document::ChartValue& value, const std::string& text) {
    const std::string* its = std::get_if<std::string>(&value);
    return its != nullptr && *its == text;
}

}  // namespace

WeightLegend::WeightLegend(const Specification& specification, const std::string& reference,
                           const ShownVariable* weight) {
    if (weight == nullptr) return;
    const Legend* legend = FindLegend(specification, reference);
    fWeights.fTitle = legend == nullptr ? weight->Label() : LegendTitleOr(*legend, weight->Label());
    if (legend != nullptr) AddEntries(*legend);
    if (fvWords.empty()) SetScaleByData(*weight);
    if (fWeights.fLow < fWeights.fHigh) return;
    fWeights.fHigh = std::min(fWeights.fLow + 2 * RoomAbout(fWeights.fLow), kFarthest);
    fWeights.fLow = std::min(fWeights.fLow, fWeights.fHigh - RoomAbout(fWeights.fHigh));
}

void WeightLegend::AddEntries(const Legend& legend) {
    std::set<double> weights;
    for (const LegendEntry& entry : legend.fvEntries) {
        const auto weight = NamedWeight(entry.fValue);
        if (!weight) continue;
        const auto at = static_cast<std::size_t>(*weight);
        if (fvWords.size() <= at) fvWords.resize(at + 1);
        fvWords[at] = CutName(InWords(entry.fWords));
        weights.insert(*weight);
    }
    if (weights.empty()) return;
    fWeights.fLow = *weights.begin();
    fWeights.fHigh = *weights.rbegin();
    for (const double weight : weights) {
        const bool isShown = weight >= legend.fLow.value_or(weight) && weight <= legend.fHigh.value_or(weight);
        if (isShown) fWeights.fvEntries.push_back({weight, fvWords[static_cast<std::size_t>(weight)]});
    }
}

void WeightLegend::SetScaleByData(const ShownVariable& variable) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (std::size_t row = 0; row < variable.Rows(); ++row) {
        const auto weight = PlaceableAt(&variable, row);
        if (!weight) continue;
        low = std::min(low, *weight);
        high = std::max(high, *weight);
    }
    if (low > high) return;
    fWeights.fLow = low;
    fWeights.fHigh = high;
}

std::string WeightLegend::WordsOf(double weight) const {
    const bool isNamed = weight >= 0 && weight < static_cast<double>(fvWords.size()) && weight == std::floor(weight);
    return isNamed ? fvWords[static_cast<std::size_t>(weight)] : ShortNumber(weight);
}

document::NetworkWeights WeightLegend::Show(const std::vector<document::NetworkLink>& links) const {
    std::set<double> occurring;
    for (const document::NetworkLink& link : links) occurring.insert(link.fWeight);
    document::NetworkWeights shown = fWeights;
    std::erase_if(shown.fvEntries,
                  [&](const document::WeightEntry& entry) { return !occurring.contains(entry.fWeight); });
    return shown;
}

SignClasses::SignClasses(const Specification& specification, const std::string& reference,
                         const ShownVariable* variable)
    : fLevels(variable) {
    if (fLevels.Count() == 0) return;
    const std::string negative = Translated("Negative");
    int next = 0;
    for (std::size_t level = 0; level < fLevels.Count(); ++level) {
        const bool isNegative = IsText(fLevels.Value(level), negative);
        fvClassOfLevel.push_back(isNegative ? static_cast<int>(fLevels.Count()) - 1 : next++);
        fIsLastNegative = fIsLastNegative || isNegative;
    }
    fClasses.fvWords.resize(fLevels.Count());
    for (std::size_t level = 0; level < fLevels.Count(); ++level) {
        fClasses.fvWords[static_cast<std::size_t>(fvClassOfLevel[level])] = fLevels.Text(level);
    }
    const Legend* legend = FindLegend(specification, reference);
    fClasses.fHasLegend = legend != nullptr;
    fClasses.fTitle = legend == nullptr ? Translated("Coefficient Estimate") : LegendTitleOr(*legend, "");
}

std::optional<int> SignClasses::At(std::size_t row) const {
    const auto level = fLevels.At(row);
    return level ? std::optional(fvClassOfLevel[*level]) : std::nullopt;
}

TypeClasses::TypeClasses(const Specification& specification, const std::string& reference,
                         const ShownVariable* variable)
    : fLevels(variable), fvClassOfLevel(fLevels.Count()) {
    if (variable == nullptr) return;
    const Legend* legend = FindLegend(specification, reference);
    fClasses.fHasLegend = legend != nullptr;
    fClasses.fTitle = legend == nullptr ? variable->Label() : LegendTitleOr(*legend, variable->Label());
    if (legend != nullptr) AddEntries(*legend);
    for (std::size_t level = 0; level < fLevels.Count(); ++level) Take(level, fLevels.Text(level));
}

void TypeClasses::AddEntries(const Legend& legend) {
    std::unordered_map<std::string_view, std::size_t> levels;
    for (std::size_t level = 0; level < fLevels.Count(); ++level) {
        const std::string* text = std::get_if<std::string>(&fLevels.Value(level));
        if (text != nullptr) levels.emplace(*text, level);
    }
    for (const LegendEntry& entry : legend.fvEntries) {
        const auto level = levels.find(entry.fValue);
        if (level != levels.end()) Take(level->second, CutName(InWords(entry.fWords)));
    }
}

void TypeClasses::Take(std::size_t level, std::string words) {
    if (fvClassOfLevel[level]) return;
    fvClassOfLevel[level] = static_cast<int>(fClasses.fvWords.size());
    fClasses.fvWords.push_back(std::move(words));
    fvKinds.push_back(KindOf(fLevels.Value(level)));
}

std::optional<int> TypeClasses::At(std::size_t row) const {
    const auto level = fLevels.At(row);
    return level ? fvClassOfLevel[*level] : std::nullopt;
}

}  // namespace hierfit::chart
