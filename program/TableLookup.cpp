#include "TableLookup.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "host/SystemMissing.h"

namespace hierfit::program {

namespace {

const document::Group* FindGroup(const document::Dimension& dimension, std::string_view label) {
    for (const document::Member& member : dimension.fMembers) {
        const auto* group = std::get_if<document::Group>(&member.fContent);
        if (group && SourceOf(group->fLabel) == label) return group;
    }
    return nullptr;
}

}  // namespace

std::string_view SourceOf(const document::Text& text) {
    if (const auto* string = std::get_if<document::StringSource>(&text.fFrom)) return string->fString;
    const auto* pattern = std::get_if<document::PatternSource>(&text.fFrom);
    return pattern ? std::string_view(pattern->fPattern.Get()) : std::string_view();
}

const document::Text* ArgumentOf(const document::Text& text, std::size_t number) {
    const auto* pattern = std::get_if<document::PatternSource>(&text.fFrom);
    if (!pattern || number >= pattern->fvArguments.size()) return nullptr;
    const std::vector<document::Text>& texts = pattern->fvArguments[number].fvTexts;
    return texts.empty() ? nullptr : &texts.front();
}

std::optional<int> FindCategory(const document::Dimension& dimension, std::string_view group, std::string_view label) {
    const document::Group* inside = group.empty() ? nullptr : FindGroup(dimension, group);
    if (!group.empty() && !inside) return {};
    for (const document::Member& member : inside ? inside->fMembers : dimension.fMembers) {
        const auto* category = std::get_if<document::Category>(&member.fContent);
        if (category && SourceOf(category->fLabel) == label) return category->fId;
    }
    return {};
}

const document::Dimension* FindDimension(const document::Table& table, std::string_view name) {
    const auto found = std::ranges::find_if(
        table.fvDimensions, [&](const document::Dimension& dimension) { return SourceOf(dimension.fName) == name; });
    return found == table.fvDimensions.end() ? nullptr : &*found;
}

const document::Text* FindCell(const document::Table& table, const document::Dimension& dimension, int category) {
    const auto at = static_cast<std::size_t>(&dimension - table.fvDimensions.data());
    const auto found =
        std::ranges::find_if(table.fvCells, [&](const document::Cell& cell) { return cell.fvAt[at] == category; });
    return found == table.fvCells.end() ? nullptr : &found->fContent;
}

bool IsUnknownNumber(const document::Text& text) {
    const auto* source = std::get_if<document::NumberSource>(&text.fFrom);
    if (!source) return false;
    const double number = source->fNumber;
    const bool isCount = source->fFormat.fName == document::FormatName::Count;
    return number == kSystemMissing || !std::isfinite(number) || (isCount && number < 0);
}

}  // namespace hierfit::program
