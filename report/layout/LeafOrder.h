#pragma once

#include <unordered_map>
#include <vector>

#include "host/document/Table.h"

namespace hierfit::report {

/// One category and the groups about it, outermost first.
struct Leaf {
    const document::Category* fpCategory = nullptr;  ///< null at the place of cells without a category
    std::vector<const document::Group*> fvGroups;
};

/// The categories of one dimension in the order in which they are laid out, each at a place from 0. The last place is
/// that of cells without a category. It points into the dimension, which must outlive it.
class LeafOrder {
  public:
    explicit LeafOrder(const document::Dimension& dimension);

    bool HasCategories() const { return fvLeaves.size() > 1; }
    std::size_t CountPlaces() const { return fvLeaves.size(); }
    const Leaf& At(std::size_t place) const { return fvLeaves[place]; }

    /// The place of a category's id; the last place for `document::kNoCategory` and for an id that no category has.
    std::size_t FindPlace(int id) const;

  private:
    void AddMembers(const std::list<document::Member>& members, int sort, std::vector<const document::Group*>& groups);
    void AddMember(const document::Member& member, std::vector<const document::Group*>& groups);

    std::vector<Leaf> fvLeaves;
    std::unordered_map<int, std::size_t> fPlaces;
};

}  // namespace hierfit::report
