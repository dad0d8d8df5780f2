#include "host/xml/NameTable.h"

#include <cstring>

namespace hierfit::xml {

namespace {

constexpr std::size_t kFirstSlots = 256;

}  // namespace

// The address is the salt: the system places it anew in each process.
NameTable::NameTable()
    : fSalt((reinterpret_cast<std::uintptr_t>(this) * 0x9E3779B97F4A7C15U) | 1U), fvSlots(kFirstSlots, kNone) {}

std::uint32_t NameTable::Hash(std::string_view name) const {
    std::uint64_t hash = name.size();
    while (!name.empty()) {
        std::uint64_t word = 0;
        const std::size_t count = name.size() < sizeof word ? name.size() : sizeof word;
        std::memcpy(&word, name.data(), count);
        hash = (hash ^ word) * fSalt;
        hash ^= hash >> 32U;
        name.remove_prefix(count);
    }
    return static_cast<std::uint32_t>((hash * fSalt) >> 32U);
}

std::size_t NameTable::FindSlot(std::string_view name, std::uint32_t hash) const {
    const std::size_t mask = fvSlots.size() - 1;
    std::size_t slot = hash & mask;
    while (fvSlots[slot] != kNone && (fvEntries[fvSlots[slot]].fHash != hash || Get(fvSlots[slot]) != name)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

NameTable::Id NameTable::Add(std::string_view name) {
    const std::uint32_t hash = Hash(name);
    const std::size_t slot = FindSlot(name, hash);
    if (fvSlots[slot] != kNone) return fvSlots[slot];
    const Id id = static_cast<Id>(fvEntries.size());
    fvEntries.push_back(
        {static_cast<std::uint32_t>(fCharacters.size()), static_cast<std::uint32_t>(name.size()), hash});
    fCharacters.append(name);
    fvSlots[slot] = id;
    if (fvEntries.size() * 2 > fvSlots.size()) Grow();
    return id;
}

NameTable::Id NameTable::Find(std::string_view name) const { return fvSlots[FindSlot(name, Hash(name))]; }

std::string_view NameTable::Get(Id id) const {
    const Entry& entry = fvEntries[id];
    return std::string_view(fCharacters).substr(entry.fOffset, entry.fLength);
}

void NameTable::Grow() {
    fvSlots.assign(fvSlots.size() * 2, kNone);
    const std::size_t mask = fvSlots.size() - 1;
    for (Id id = 0; id < fvEntries.size(); ++id) {
        std::size_t slot = fvEntries[id].fHash & mask;
        while (fvSlots[slot] != kNone) slot = (slot + 1) & mask;
        fvSlots[slot] = id;
    }
}

}  // namespace hierfit::xml
