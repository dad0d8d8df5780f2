#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

namespace hierfit::document {

/// Where a cell stands: for each dimension, in their order, the id of a category or `kNoCategory`. Most tables have few
/// dimensions and many cells, so the first ids are kept in the place itself.
class CellPlace {
  public:
    CellPlace() = default;
    CellPlace(std::initializer_list<int> ids) {
        for (const int id : ids) push_back(id);
    }
    CellPlace(const CellPlace& other) : fFew(other.fFew), fFewCount(other.fFewCount) {
        if (other.fpMany) fpMany = std::make_unique<std::vector<int>>(*other.fpMany);
    }
    CellPlace(CellPlace&&) noexcept = default;
    CellPlace& operator=(const CellPlace& other) { return *this = CellPlace(other); }
    CellPlace& operator=(CellPlace&&) noexcept = default;
    ~CellPlace() = default;

    std::size_t size() const { return fpMany ? fpMany->size() : fFewCount; }
    const int* begin() const { return fpMany ? fpMany->data() : fFew.data(); }
    const int* end() const { return begin() + size(); }
    int operator[](std::size_t index) const { return begin()[index]; }
    int& operator[](std::size_t index) { return fpMany ? (*fpMany)[index] : fFew[index]; }
    int back() const { return *(end() - 1); }

    void push_back(int id) {
        if (!fpMany && fFewCount < fFew.size()) {
            fFew[fFewCount++] = id;
            return;
        }
        if (!fpMany) fpMany = std::make_unique<std::vector<int>>(fFew.begin(), fFew.end());
        fpMany->push_back(id);
    }

    bool operator==(const CellPlace& other) const { return std::equal(begin(), end(), other.begin(), other.end()); }

  private:
    std::unique_ptr<std::vector<int>> fpMany;  ///< all ids, where they are too many for `fFew`
    std::array<int, 3> fFew{};
    unsigned fFewCount = 0;
};

}  // namespace hierfit::document
