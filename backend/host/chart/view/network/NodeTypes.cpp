#include "host/chart/view/network/NodeTypes.h"

#include <array>
#include <string_view>
#include <utility>

#include "host/chart/view/parts/ChartWords.h"

namespace hierfit::chart {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kShapes = {{
    {"continuous", "circle"},
    {"categorical", "square"},
    {"ordinal", "triangle-up"},
    {"interaction", "diamond"},
    {"intercept", "triangle-right"},
}};

/// The shape of a kind; a cross for what has no known kind.
std::string ShapeOf(const document::ChartValue& value) {
    const std::string* text = std::get_if<std::string>(&value);
    for (const auto& [kind, shape] : kShapes) {
        if (text != nullptr && *text == kind) return std::string(shape);
    }
    return "cross";
}

}  // namespace

NodeTypes::NodeTypes(const Legend* legend, const ShownVariable* variable)
    : fLevels(variable), fvTypeOfLevel(fLevels.Count()) {
    std::unordered_map<std::string_view, std::size_t> levels;
    for (std::size_t level = 0; level < fLevels.Count(); ++level) {
        const std::string* text = std::get_if<std::string>(&fLevels.Value(level));
        if (text != nullptr) levels.emplace(*text, level);
    }
    if (legend != nullptr) {
        for (const LegendEntry& entry : legend->fvEntries) {
            const auto level = levels.find(entry.fValue);
            if (level != levels.end()) Take(level->second, CutName(InWords(entry.fWords)));
        }
    }
    for (std::size_t level = 0; level < fLevels.Count(); ++level) Take(level, fLevels.Text(level));
}

void NodeTypes::Take(std::size_t level, std::string text) {
    if (fvTypeOfLevel[level]) return;
    fvTypeOfLevel[level] = fvTexts.size();
    fvTexts.push_back(std::move(text));
    fvShapes.push_back(ShapeOf(fLevels.Value(level)));
}

std::optional<std::size_t> NodeTypes::At(std::size_t row) const {
    const auto level = fLevels.At(row);
    return level ? fvTypeOfLevel[*level] : std::nullopt;
}

}  // namespace hierfit::chart
