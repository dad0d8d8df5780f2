#include "host/pivot/CellIndex.h"

namespace hierfit::pivot {

namespace {

constexpr int kLeastBits = 4;

std::uint64_t Hash(const document::CellPlace& place) {
    std::uint64_t hash = place.size();
    for (const int id : place) hash = (hash ^ static_cast<std::uint64_t>(id + 1)) * 0x9E3779B97F4A7C15u + (hash >> 29);
    return hash * 0x9E3779B97F4A7C15u;
}

}  // namespace

std::optional<std::size_t> CellIndex::Find(const document::CellPlace& place) const {
    if (fvSlots.empty()) return {};
    const std::uint32_t number = fvSlots[FindSlot(place)];
    return number == 0 ? std::nullopt : std::optional<std::size_t>(number - 1);
}

void CellIndex::AddLast() {
    if (2 * fCells.size() > fvSlots.size()) return Resize(fBits == 0 ? kLeastBits : fBits + 1);
    fvSlots[FindSlot(fCells.back().fvAt)] = static_cast<std::uint32_t>(fCells.size());
}

void CellIndex::Rebuild() {
    if (fBits > 0) Resize(fBits);
}

void CellIndex::Resize(int bits) {
    fBits = bits;
    fvSlots.assign(std::size_t{1} << bits, 0);
    std::uint32_t number = 0;
    for (const document::Cell& cell : fCells) fvSlots[FindSlot(cell.fvAt)] = ++number;
}

// The slot of a place, or the free one where it would stand.
std::size_t CellIndex::FindSlot(const document::CellPlace& place) const {
    const std::size_t mask = fvSlots.size() - 1;
    std::size_t slot = Hash(place) >> (64 - fBits);
    while (fvSlots[slot] != 0 && !(fCells[fvSlots[slot] - 1].fvAt == place)) slot = (slot + 1) & mask;
    return slot;
}

}  // namespace hierfit::pivot
