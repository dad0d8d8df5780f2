#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::xml {

/// The distinct names of a document. Each has a number, given in the order of first appearance. Names are found by hash
/// in constant time; the hash is salted, so that no document can be made of names that collide.
class NameTable {
  public:
    using Id = std::uint32_t;
    static constexpr Id kNone = 0xFFFFFFFF;

    NameTable();

    /// The name's number; a new one when it has none yet.
    Id Add(std::string_view name);

    /// The name's number, or kNone.
    Id Find(std::string_view name) const;

    Id Size() const { return static_cast<Id>(fvEntries.size()); }

    /// Good until the next `Add`.
    std::string_view Get(Id id) const;

  private:
    struct Entry {
        std::uint32_t fOffset;
        std::uint32_t fLength;
        std::uint32_t fHash;
    };

    std::uint32_t Hash(std::string_view name) const;
    std::size_t FindSlot(std::string_view name, std::uint32_t hash) const;
    void Grow();

    std::uint64_t fSalt;
    std::string fCharacters;
    std::vector<Entry> fvEntries;
    std::vector<Id> fvSlots;  ///< open addressing; the size is a power of two, at most half are taken
};

}  // namespace hierfit::xml
