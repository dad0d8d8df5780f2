#pragma once

#include <unistd.h>

#include <utility>

namespace hierfit::program {

/// Owns a file descriptor and closes it at the end.
class Descriptor {
  public:
    explicit Descriptor(int descriptor) : fDescriptor(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    bool IsOpen() const { return fDescriptor >= 0; }
    int Get() const { return fDescriptor; }

    /// Closes it now; false when the system could not write what was still to be written.
    bool Close() { return fDescriptor < 0 || close(std::exchange(fDescriptor, -1)) == 0; }

  private:
    int fDescriptor;
};

}  // namespace hierfit::program
