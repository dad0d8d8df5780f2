#include "host/chart/view/network/DiagramLegends.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostEntries = 6;
constexpr double kLargestWeight = 99;

/// A weight that a legend can name: a small whole number.
std::optional<double> NamedWeight(const std::string& text) {
    double weight = -1;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, weight);
    const bool isNamed = error == std::errc() && last == end && weight >= 0 && weight <= kLargestWeight;
    return isNamed && weight == std::floor(weight) ? std::optional(weight) : std::nullopt;
}

std::vector<double> AtMostSix(const std::vector<double>& values) {
    if (values.size() <= kMostEntries) return values;
    std::vector<double> chosen;
    for (std::size_t at = 0; at < kMostEntries; ++at) {
        chosen.push_back(values[at * (values.size() - 1) / (kMostEntries - 1)]);
    }
    return chosen;
}

void AddEntries(const Legend& legend, DiagramWeights& weights) {
    std::vector<double> values;
    for (const LegendEntry& entry : legend.fvEntries) {
        const auto weight = NamedWeight(entry.fValue);
        if (!weight) continue;
        const auto at = static_cast<std::size_t>(*weight);
        if (weights.fvWords.size() <= at) weights.fvWords.resize(at + 1);
        weights.fvWords[at] = CutName(InWords(entry.fWords));
        values.push_back(*weight);
    }
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    if (values.empty()) return;
    weights.fLow = values.front();
    weights.fHigh = values.back();
    std::erase_if(values, [&legend](double value) {
        return value < legend.fLow.value_or(value) || value > legend.fHigh.value_or(value);
    });
    weights.fvLegendValues = AtMostSix(values);
}

void SetScaleByData(const ShownVariable& variable, DiagramWeights& weights) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (std::size_t row = 0; row < variable.Rows(); ++row) {
        const auto weight = PlaceableAt(&variable, row);
        if (!weight) continue;
        low = std::min(low, *weight);
        high = std::max(high, *weight);
    }
    if (low > high) return;
    weights.fLow = low;
    weights.fHigh = high;
}

}  // namespace

std::string DiagramWeights::InWords(double weight) const {
    const bool isNamed = weight >= 0 && weight < static_cast<double>(fvWords.size()) && weight == std::floor(weight);
    return isNamed ? fvWords[static_cast<std::size_t>(weight)] : ShortNumber(weight);
}

DiagramWeights MakeWeights(const Specification& specification, const std::string& reference,
                           const ShownVariable* weight) {
    DiagramWeights weights;
    if (weight == nullptr) return weights;
    weights.fTitle = weight->Label();
    const Legend* legend = FindLegend(specification, reference);
    if (legend != nullptr) weights.fTitle = LegendTitleOr(*legend, weights.fTitle);
    if (legend != nullptr) AddEntries(*legend, weights);
    if (weights.fvWords.empty()) SetScaleByData(*weight, weights);
    if (weights.fLow >= weights.fHigh) weights.fHigh = weights.fLow + 2 * RoomAbout(weights.fLow);
    return weights;
}

std::vector<std::size_t> OrderSigns(const Levels& signs) {
    const std::string negative = Translated("Negative");
    std::vector<std::size_t> order(signs.Count());
    std::size_t next = 0;
    for (std::size_t level = 0; level < signs.Count(); ++level) {
        const std::string* text = std::get_if<std::string>(&signs.Value(level));
        order[level] = text != nullptr && *text == negative ? signs.Count() - 1 : next++;
    }
    return order;
}

DiagramSigns MakeSigns(const Specification& specification, const std::string& reference, const Levels& signs,
                       const std::vector<std::size_t>& signOfLevel) {
    DiagramSigns made;
    if (signs.Count() == 0) return made;
    made.fvWords.resize(signs.Count());
    for (std::size_t level = 0; level < signs.Count(); ++level) made.fvWords[signOfLevel[level]] = signs.Text(level);
    const std::string negative = Translated("Negative");
    made.fIsLastNegative = made.fvWords.back() == negative;
    const Legend* legend = FindLegend(specification, reference);
    made.fHasLegend = legend != nullptr;
    made.fTitle = legend == nullptr ? Translated("Coefficient Estimate") : LegendTitleOr(*legend, "");
    return made;
}

DiagramTypes MakeTypes(const Specification& specification, const std::string& reference, const NodeTypes& types,
                       const ShownVariable* variable) {
    DiagramTypes made;
    if (variable == nullptr) return made;
    const Legend* legend = FindLegend(specification, reference);
    made.fHasLegend = legend != nullptr;
    made.fTitle = legend == nullptr ? variable->Label() : LegendTitleOr(*legend, variable->Label());
    made.fvWords = types.Texts();
    made.fvShapes = types.Shapes();
    return made;
}

}  // namespace hierfit::chart
