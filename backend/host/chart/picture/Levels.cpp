#include "host/chart/picture/Levels.h"

namespace hierfit::chart {

namespace {

/// The level kept under the key, and whether it is a new one.
template <typename Map>
std::pair<std::size_t, bool> Keep(Map& levels, const typename Map::key_type& key, std::size_t next) {
    const auto [place, isNew] = levels.emplace(key, next);
    return {place->second, isNew};
}

}  // namespace

Levels::Levels(const ShownVariable* variable) : fpVariable(variable) {
    if (variable == nullptr) return;
    fvLevelOfRow.reserve(variable->Rows());
    for (std::size_t row = 0; row < variable->Rows(); ++row) {
        const bool isLevel = std::holds_alternative<std::string>(variable->At(row)) || variable->NumberAt(row);
        fvLevelOfRow.push_back(isLevel ? static_cast<int>(Find(variable->At(row))) : -1);
    }
    std::vector<std::string> values;
    for (const document::ChartValue* value : fvpValues) values.push_back(variable->ValueBehind(*value));
    TellApart(fvTexts, values);
}

std::size_t Levels::Find(const document::ChartValue& value) {
    const double* number = std::get_if<double>(&value);
    const auto [level, isNew] =
        number != nullptr ? Keep(fOfNumbers, *number, Count()) : Keep(fOfTexts, std::get<std::string>(value), Count());
    if (isNew) {
        fvpValues.push_back(&value);
        fvTexts.push_back(fpVariable->Words(value));
    }
    return level;
}

std::optional<std::size_t> Levels::At(std::size_t row) const {
    if (row >= fvLevelOfRow.size() || fvLevelOfRow[row] < 0) return std::nullopt;
    return static_cast<std::size_t>(fvLevelOfRow[row]);
}

std::string_view Levels::TextWithoutPrefix(std::size_t level) const {
    std::string_view text = Text(level);
    const std::string& prefix = fpVariable->Prefix();
    if (text.starts_with(prefix)) text.remove_prefix(prefix.size());
    return text;
}

void TellApart(std::vector<std::string>& texts, const std::vector<std::string>& values) {
    std::unordered_map<std::string, int> counts;
    for (const std::string& text : texts) ++counts[text];
    if (counts.size() == texts.size()) return;
    for (std::size_t at = 0; at < texts.size(); ++at) {
        if (counts[texts[at]] > 1 && !values[at].empty()) texts[at] += " (" + values[at] + ")";
    }
}

}  // namespace hierfit::chart
