#include "fuzz/crowd/PeakOfMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HIERFIT_HAS_HOOKS
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define HIERFIT_HAS_HOOKS
#endif

#ifdef HIERFIT_HAS_HOOKS
// As in sanitizer/allocator_interface.h, which not every compiler has at hand.
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void* place);
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*take)(const volatile void*, std::size_t),
                                                         void (*give)(const volatile void*));
#endif

namespace {

std::size_t taken = 0;
std::size_t highest = 0;

void Take(std::size_t size) {
    taken += size;
    highest = std::max(highest, taken);
}

void Give(std::size_t size) { taken -= std::min(taken, size); }

}  // namespace

#ifdef HIERFIT_HAS_HOOKS

// The sanitizer pairs `new` with its own `delete`, so it is asked instead.
namespace {

void TakeHook(const volatile void*, std::size_t size) { Take(size); }

void GiveHook(const volatile void* place) {
    if (place) Give(__sanitizer_get_allocated_size(place));
}

const bool isHooked = __sanitizer_install_malloc_and_free_hooks(&TakeHook, &GiveHook) != 0;

}  // namespace

#else

void* operator new(std::size_t size) {
    void* place = std::malloc(std::max<std::size_t>(size, 1));
    if (!place) throw std::bad_alloc();
    Take(malloc_usable_size(place));
    return place;
}

void operator delete(void* place) noexcept {
    if (!place) return;
    Give(malloc_usable_size(place));
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept { operator delete(place); }

#endif

namespace hierfit::fuzz {

PeakOfMemory::PeakOfMemory() : fBefore(taken) {
#ifdef HIERFIT_HAS_HOOKS
    if (!isHooked) std::abort();
#endif
    highest = taken;
}

std::size_t PeakOfMemory::Get() const { return highest - std::min(highest, fBefore); }

}  // namespace hierfit::fuzz
