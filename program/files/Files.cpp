#include "program/files/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/unicode/Excerpt.h"
#include "program/files/Descriptor.h"
#include "program/files/StandardError.h"

namespace hierfit::program {

namespace {

FileError SystemError(const std::string& path) {
    return {unicode::Excerpt(path, kMostOfText) + ": " + std::strerror(errno)};
}

std::variant<std::string, FileError> ReadAll(int descriptor, const std::string& path, std::size_t limit) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) return SystemError(path);
    if (S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        return SystemError(path);
    }
    std::string text;
    const std::size_t expected = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
    if (expected > limit)
        return FileError{unicode::Excerpt(path, kMostOfText) + ": larger than " + std::to_string(limit >> 20) + " MiB"};
    std::size_t size = 0;
    text.resize(expected + 1);  // one byte more, so that the end is seen without another round
    while (true) {
        const ssize_t got = read(descriptor, text.data() + size, text.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return SystemError(path);
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
        if (size > limit)
            return FileError{unicode::Excerpt(path, kMostOfText) + ": larger than " + std::to_string(limit >> 20) +
                             " MiB"};
        if (size == text.size()) text.resize(2 * size + 4096);
    }
    text.resize(size);
    return text;
}

}  // namespace

std::variant<std::string, FileError> ReadFile(const std::string& path, std::size_t limit) {
    if (path == "-") return ReadAll(STDIN_FILENO, "standard input", limit);
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) return SystemError(path);
    return ReadAll(file.Get(), path, limit);
}

bool Exists(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

FileError DescribeAbsence(const std::string& path) {
    if (Exists(path)) errno = ENOENT;  // it has come meanwhile
    return SystemError(path);
}

bool IsFolder(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace hierfit::program
