#pragma once

#include <compare>

namespace hierfit {

/// An alternative that no variant ever holds. GCC's library takes one of strings and plain values alone for always
/// valued, and destroys what is not there when a copy of it throws.
struct NeverHeld {
    NeverHeld() = delete;
    NeverHeld(const NeverHeld&) {}
    NeverHeld& operator=(const NeverHeld&) { return *this; }

    auto operator<=>(const NeverHeld&) const = default;
};

}  // namespace hierfit
