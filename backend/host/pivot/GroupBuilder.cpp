#include "host/pivot/GroupBuilder.h"

namespace hierfit::pivot {

GroupBuilder& GroupBuilder::FindGroup(const document::Text& label, bool flag, int sort) {
    if (const auto found = fGroups.find(&label); found != fGroups.end()) return *found->second;
    fpMembers->push_back({document::Group{label, flag, sort, {}}});
    auto& group = std::get<document::Group>(fpMembers->back().fContent);
    GroupBuilder& builder = fBuilders.emplace_back(group.fMembers);
    fGroups.emplace(&group.fLabel, &builder);
    return builder;
}

document::Category& GroupBuilder::FindCategory(const document::Text& label, int& nextId) {
    if (const auto found = fCategories.find(&label); found != fCategories.end()) return *found->second;
    fpMembers->push_back({document::Category{nextId++, label, {}}});
    auto& category = std::get<document::Category>(fpMembers->back().fContent);
    fCategories.emplace(&category.fLabel, &category);
    return category;
}

}  // namespace hierfit::pivot
