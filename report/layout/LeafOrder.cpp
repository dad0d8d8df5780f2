#include "report/layout/LeafOrder.h"

#include <algorithm>

namespace hierfit::report {

namespace {

constexpr int kAscending = 0;
constexpr int kDescending = 1;

const std::string& WordsOf(const document::Member& member) {
    const auto* category = std::get_if<document::Category>(&member.fContent);
    return category ? category->fLabel.fWords : std::get<document::Group>(member.fContent).fLabel.fWords;
}

std::vector<const document::Member*> SortMembers(const std::list<document::Member>& members, int sort) {
    std::vector<const document::Member*> sorted;
    sorted.reserve(members.size());
    for (const document::Member& member : members) sorted.push_back(&member);
    const auto before = [](const auto* a, const auto* b) { return WordsOf(*a) < WordsOf(*b); };
    const auto behind = [](const auto* a, const auto* b) { return WordsOf(*b) < WordsOf(*a); };
    if (sort == kAscending) std::stable_sort(sorted.begin(), sorted.end(), before);
    if (sort == kDescending) std::stable_sort(sorted.begin(), sorted.end(), behind);
    return sorted;
}

}  // namespace

LeafOrder::LeafOrder(const document::Dimension& dimension) {
    std::vector<const document::Group*> groups;
    AddMembers(dimension.fMembers, dimension.fSort, groups);
    fvLeaves.emplace_back();
}

std::size_t LeafOrder::FindPlace(int id) const {
    const auto found = fPlaces.find(id);
    return found == fPlaces.end() ? fvLeaves.size() - 1 : found->second;
}

void LeafOrder::AddMembers(const std::list<document::Member>& members, int sort,
                           std::vector<const document::Group*>& groups) {
    for (const document::Member* member : SortMembers(members, sort)) AddMember(*member, groups);
}

void LeafOrder::AddMember(const document::Member& member, std::vector<const document::Group*>& groups) {
    if (const auto* category = std::get_if<document::Category>(&member.fContent)) {
        if (category->fId == document::kNoCategory) return;
        if (fPlaces.emplace(category->fId, fvLeaves.size()).second) fvLeaves.push_back({category, groups});
        return;
    }
    const auto& group = std::get<document::Group>(member.fContent);
    groups.push_back(&group);
    AddMembers(group.fMembers, group.fSort, groups);
    groups.pop_back();
}

}  // namespace hierfit::report
