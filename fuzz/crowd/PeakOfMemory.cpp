#include "fuzz/crowd/PeakOfMemory.h"

#include <algorithm>
#include <cstdlib>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HIERFIT_HAS_HOOKS
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define HIERFIT_HAS_HOOKS
#endif

namespace {

std::size_t taken = 0;
std::size_t highest = 0;

}  // namespace

#ifdef HIERFIT_HAS_HOOKS

// As in sanitizer/allocator_interface.h, which not every compiler has at hand.
extern "C" std::size_t __sanitizer_get_allocated_size(const volatile void* place);
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*take)(const volatile void*, std::size_t),
                                                         void (*give)(const volatile void*));

namespace {

void Take(const volatile void*, std::size_t size) { highest = std::max(highest, taken += size); }

void Give(const volatile void* place) {
    if (place) taken -= std::min(taken, __sanitizer_get_allocated_size(place));
}

const bool isHooked = __sanitizer_install_malloc_and_free_hooks(&Take, &Give) != 0;

}  // namespace

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
