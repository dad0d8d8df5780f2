#pragma once

#include <cstddef>

namespace hierfit::xml {

/// Tells the system that a stretch of fresh memory will be filled, so that it may come in large pages: at tens of
/// megabytes most of the time of reading goes into page faults otherwise. A hint; short stretches are left alone.
void ExpectToFill(const void* begin, std::size_t bytes);

template <typename Container>
void ReserveLarge(Container& container, std::size_t size) {
    container.reserve(size);
    ExpectToFill(container.data(), container.capacity() * sizeof(typename Container::value_type));
}

}  // namespace hierfit::xml
