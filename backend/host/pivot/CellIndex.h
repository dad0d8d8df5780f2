#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "host/document/Table.h"

namespace hierfit::pivot {

/// Finds the cells of a table by their places. It points to the cells, which must outlive it, and holds their numbers
/// alone, in one piece.
class CellIndex {
  public:
    explicit CellIndex(const std::deque<document::Cell>& cells) : fCells(cells) {}

    std::optional<std::size_t> Find(const document::CellPlace& place) const;

    /// Takes up the last of the cells, at whose place no other stands.
    void AddLast();

    /// Takes up all cells anew, after their places have changed.
    void Rebuild();

  private:
    std::size_t FindSlot(const document::CellPlace& place) const;
    void Resize(int bits);

    const std::deque<document::Cell>& fCells;
    std::vector<std::uint32_t> fvSlots;  ///< numbers of cells from 1, 0 where free; at most half are taken
    int fBits = 0;                       ///< there are so many slots as a power of two
};

}  // namespace hierfit::pivot
