#include "host/chart/view/parts/Levels.h"

#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr TextStyle kLabelStyle{11.5, false};

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

std::vector<std::string> Levels::CutTexts(double width) const {
    std::vector<std::string> texts;
    texts.reserve(fvTexts.size());
    for (const std::string& text : fvTexts) texts.push_back(CutText(KeepBlanks(text), width, kLabelStyle));
    return texts;
}

}  // namespace hierfit::chart
