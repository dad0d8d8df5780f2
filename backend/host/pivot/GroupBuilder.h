#pragma once

#include <list>
#include <unordered_map>

#include "host/document/Table.h"
#include "host/pivot/text/TextIdentity.h"

namespace hierfit::pivot {

/// Finds or makes the members of one group, or of a dimension itself, by their labels. It owns the builders of the
/// groups in it; the nodes stand in the output document, which must outlive it.
class GroupBuilder {
  public:
    /// A group's members as they stand in the document.
    explicit GroupBuilder(std::list<document::Member>& members) : fpMembers(&members) {}
    GroupBuilder(const GroupBuilder&) = delete;
    GroupBuilder& operator=(const GroupBuilder&) = delete;

    GroupBuilder& FindGroup(const document::Text& label, bool flag, int sort);

    /// The category with that label; a new one gets the next id, which is counted up.
    document::Category& FindCategory(const document::Text& label, int& nextId);

    /// Tells that the members have moved to another list. Their nodes have not.
    void SetMembers(std::list<document::Member>& members) { fpMembers = &members; }

  private:
    struct Hash {
        std::size_t operator()(const document::Text* label) const { return HashLabel(*label); }
    };
    struct Same {
        bool operator()(const document::Text* a, const document::Text* b) const { return IsSameLabel(*a, *b); }
    };
    template <typename T>
    using ByLabel = std::unordered_map<const document::Text*, T*, Hash, Same>;

    std::list<document::Member>* fpMembers;
    std::list<GroupBuilder> fBuilders;
    ByLabel<GroupBuilder> fGroups;
    ByLabel<document::Category> fCategories;
};

}  // namespace hierfit::pivot
