#include "program/files/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "host/unicode/Excerpt.h"
#include "program/files/Descriptor.h"
#include "program/files/ExitStatus.h"
#include "program/files/StandardError.h"
#include "program/files/TemporaryFile.h"

namespace hierfit::program {

namespace {

struct Free {
    void operator()(char* text) const { std::free(text); }
};

/// The file behind a symbolic link, so that the link stays; the path itself where it leads nowhere yet.
std::optional<std::string> FollowLinks(const std::string& path) {
    const std::unique_ptr<char, Free> resolved(realpath(path.c_str(), nullptr));
    if (resolved) return resolved.get();
    return errno == ENOENT ? std::optional(path) : std::nullopt;
}

bool WriteDirectly(const std::string& path, std::string_view text) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.IsOpen() && WriteAll(file.Get(), text) && file.Close();
}

mode_t ReadMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

/// What the system gives to new files. It is asked before there are threads, since the mask is all threads' own and to
/// read it is to change it.
const mode_t kNewFile = 0666 & ~ReadMask();

/// Access rights of the file to come: those of the one it replaces, else those of new files.
mode_t ChooseMode(const struct stat* present) { return present ? present->st_mode & 07777 : kNewFile; }

bool WriteBeside(const std::string& path, std::string_view text, const struct stat* present) {
    TemporaryFile file(path);
    return file.IsOpen() && WriteAll(file.Get(), text) && fchmod(file.Get(), ChooseMode(present)) == 0 &&
           file.TakePlace();
}

/// Each of the above leaves the reason of a failure in errno.
bool WriteFile(const std::string& path, std::string_view text) {
    const std::optional<std::string> target = FollowLinks(path);
    if (!target) return false;
    struct stat status {};
    const bool exists = stat(target->c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        return false;
    }
    if (exists && !S_ISREG(status.st_mode)) return WriteDirectly(*target, text);
    return WriteBeside(*target, text, exists ? &status : nullptr);
}

}  // namespace

bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<FileError> WriteOutput(const std::string& path, std::string_view text) {
    const bool isStandardOutput = path == "-";
    if (isStandardOutput ? WriteAll(STDOUT_FILENO, text) : WriteFile(path, text)) return {};
    const int reason = errno;
    const std::string name = isStandardOutput ? "standard output" : unicode::Excerpt(path, kMostOfText);
    return FileError{name + ": " + std::strerror(reason), isStandardOutput && reason == EPIPE};
}

int Conclude(const std::optional<FileError>& error) {
    if (!error) return kWritten;
    if (error->fIsClosedPipe) return kClosedPipe;
    PrintError(error->fText);
    return kUnwritable;
}

}  // namespace hierfit::program
