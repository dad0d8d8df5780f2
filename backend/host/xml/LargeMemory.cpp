#include "host/xml/LargeMemory.h"

#include <cstdint>

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

namespace hierfit::xml {

#ifdef MADV_HUGEPAGE

namespace {

constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20U;

}  // namespace

void ExpectToFill(const void* begin, std::size_t bytes) {
    const auto address = reinterpret_cast<std::uintptr_t>(begin);
    const std::uintptr_t first = (address + kLargePage - 1) & ~(kLargePage - 1);
    const std::uintptr_t end = (address + bytes) & ~(kLargePage - 1);
    auto* const memory = static_cast<char*>(const_cast<void*>(begin));
    if (end > first) madvise(memory + (first - address), end - first, MADV_HUGEPAGE);
}

#else

void ExpectToFill(const void*, std::size_t) {}

#endif

}  // namespace hierfit::xml
