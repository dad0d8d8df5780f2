#include "hierfit/charts/ContrastGroup.h"

#include <algorithm>
#include <cstddef>

#include "hierfit/charts/ChartText.h"

namespace hierfit {

namespace {

constexpr std::size_t kMostFactors = 3;
constexpr std::string_view kGuideBegin = "<lineGuide";
constexpr std::string_view kGuideEnd = "</lineGuide>";
constexpr std::string_view kCondition = "whenText";

std::string Join(const std::map<std::string, std::string>& levels) {
    std::string key;
    for (const auto& [field, level] : levels) key += level;
    return key;
}

/// True in every panel but the group's own.
std::string ConditionOf(const ContrastGroup& group) {
    const auto& [first, second] = group.fvFacetValues;
    if (first.empty()) return "false";
    std::string condition = "facet1!=&quot;" + first + "&quot;";
    if (!second.empty()) condition += "||facet2!=&quot;" + second + "&quot;";
    return condition;
}

/// Whether every group up to one that finds no guide has been given one.
bool GiveGuides(std::string& xml, const ContrastGroups& groups) {
    std::size_t cursor = xml.find(kGuideBegin);
    if (cursor == std::string::npos) return false;
    for (const auto& [key, group] : groups) {
        const std::size_t place = xml.find("y=", cursor);
        if (place == std::string::npos) return false;
        xml.replace(std::min(place + 3, xml.size()), 2, NumberToText(group.fBase));
        cursor = ReplaceFirst(xml, kCondition, ConditionOf(group), place);
    }
    return true;
}

void CutSurplusGuides(std::string& xml) {
    const std::size_t surplus = xml.find(kCondition);
    if (surplus == std::string::npos) return;
    const std::size_t begin = xml.rfind(kGuideBegin, surplus);
    const std::size_t end = xml.rfind(kGuideEnd);
    if (begin == std::string::npos || end == std::string::npos || end < begin) return;
    xml.erase(begin, end + kGuideEnd.size() - begin);
}

}  // namespace

std::unordered_map<std::string, std::string> MakeMeansByLevels(const EmmeansData& block) {
    const std::vector<Coordinates>& factors = block.fEstimates.fvFactorCoords;
    std::unordered_map<std::string, std::string> means;
    if (factors.empty()) return means;
    const std::size_t nFactors = std::min(factors.size(), kMostFactors);
    for (std::size_t r = 0; r < factors.front().fvValues.size(); ++r) {
        std::map<std::string, std::string> levels;
        for (std::size_t j = 0; j < nFactors; ++j) levels.emplace(factors[j].fField, EntryOf(factors[j], r));
        means.emplace(Join(levels), EntryOf(block.fEstimates.fMean, r));
    }
    return means;
}

std::string LevelKey(const ContrastRows& rows, std::size_t row) {
    std::map<std::string, std::string> levels{{rows.Compared().fField, EntryOf(rows.Compared(), row)}};
    for (const std::size_t i : {0, 1}) {
        if (rows.HasPanel(i)) levels.emplace(rows.PanelField(i), rows.PanelLevel(i, row));
    }
    return Join(levels);
}

void FillLineGuides(std::string& xml, const ContrastGroups& groups) {
    if (GiveGuides(xml, groups)) CutSurplusGuides(xml);
}

}  // namespace hierfit
