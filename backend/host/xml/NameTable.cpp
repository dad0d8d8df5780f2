#include "host/xml/NameTable.h"

#include <cstring>

namespace hierfit::xml {

namespace {

constexpr std::size_t kFirstSlots = 256;

template <typename Word>
std::uint64_t Load(const char* bytes) {
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Up to eight bytes as one word; loads that overlap spare a loop.
std::uint64_t LastWord(std::string_view bytes) {
    const char* const begin = bytes.data();
    const char* const end = begin + bytes.size();
    if (bytes.size() == 8) return Load<std::uint64_t>(begin);
    if (bytes.size() >= 4) return Load<std::uint32_t>(begin) << 32U | Load<std::uint32_t>(end - 4);
    if (bytes.size() >= 2) return Load<std::uint16_t>(begin) << 16U | Load<std::uint16_t>(end - 2);
    return bytes.empty() ? 0 : Load<std::uint8_t>(begin);
}

}  // namespace

// The address is the salt: the system places it anew in each process.
NameTable::NameTable()
    : fSalt((reinterpret_cast<std::uintptr_t>(this) * 0x9E3779B97F4A7C15U) | 1U), fvSlots(kFirstSlots, kNone) {}

std::uint32_t NameTable::Hash(std::string_view name) const {
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    std::uint64_t hash = name.size();
    for (; name.size() > kWord; name.remove_prefix(kWord)) {
        hash = (hash ^ Load<std::uint64_t>(name.data())) * fSalt;
        hash ^= hash >> 32U;
    }
    hash = (hash ^ LastWord(name)) * fSalt;
    hash ^= hash >> 32U;
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
