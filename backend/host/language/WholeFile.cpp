#include "host/language/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hierfit::language {

namespace {

class Descriptor {
  public:
    // Without O_NONBLOCK, a pipe that bears the name would keep us waiting for a writer.
    explicit Descriptor(const std::string& path) : fNumber(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~Descriptor() {
        if (fNumber >= 0) ::close(fNumber);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return fNumber; }

  private:
    int fNumber;
};

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit) {
    const Descriptor file(path);
    struct stat status {};
    if (file.Get() < 0 || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > limit) return std::nullopt;
    std::string bytes(size, '\0');
    if (::read(file.Get(), bytes.data(), size) != static_cast<ssize_t>(size)) return std::nullopt;
    return bytes;
}

}  // namespace hierfit::language
