#pragma once

#include <cstddef>

namespace hierfit::fuzz {

/// How much more memory than at first was taken at a time, as the address sanitizer knows it; 0 where there is none.
/// One at a time, in a program of one thread.
class PeakOfMemory {
  public:
    PeakOfMemory();

    std::size_t Get() const;

  private:
    std::size_t fBefore;
};

}  // namespace hierfit::fuzz
