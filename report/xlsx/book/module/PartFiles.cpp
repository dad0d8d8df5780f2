#include "report/xlsx/book/module/PartFiles.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace hierfit::report::xlsx {

namespace {

thread_local int tFailure = 0;

struct Part {
    int fFile;
    off64_t fAt = 0;
};

ssize_t Read(void* cookie, char* bytes, std::size_t size) {
    Part& part = *static_cast<Part*>(cookie);
    const ssize_t count = pread(part.fFile, bytes, size, part.fAt);
    if (count < 0) tFailure = errno;
    if (count > 0) part.fAt += count;
    return count;
}

ssize_t Write(void* cookie, const char* bytes, std::size_t size) {
    Part& part = *static_cast<Part*>(cookie);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = pwrite(part.fFile, bytes + done, size - done, part.fAt);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            tFailure = errno;
            return 0;
        }
        done += static_cast<std::size_t>(count);
        part.fAt += count;
    }
    return static_cast<ssize_t>(size);
}

int Seek(void* cookie, off64_t* position, int from) {
    Part& part = *static_cast<Part*>(cookie);
    const off64_t begin = from == SEEK_SET ? 0 : from == SEEK_CUR ? part.fAt : lseek(part.fFile, 0, SEEK_END);
    if (begin < 0 || begin + *position < 0) return -1;
    *position = part.fAt = begin + *position;
    return 0;
}

int Close(void* cookie) {
    const std::unique_ptr<Part> part(static_cast<Part*>(cookie));
    return close(part->fFile);
}

/// In memory where the folder takes no files without names.
int OpenNameless() {
    const char* folder = std::getenv("TMPDIR");
    const int file = open(folder && *folder ? folder : P_tmpdir, O_TMPFILE | O_RDWR | O_EXCL | O_CLOEXEC, 0600);
    return file >= 0 ? file : memfd_create("part", MFD_CLOEXEC);
}

FILE* OpenPart() {
    std::unique_ptr<Part> part(new (std::nothrow) Part{-1});
    if (!part) errno = ENOMEM;
    if (!part || (part->fFile = OpenNameless()) < 0) return nullptr;
    FILE* const file = fopencookie(part.get(), "w+", {&Read, &Write, &Seek, &Close});
    if (!file) close(part->fFile);
    if (file) static_cast<void>(part.release());
    return file;
}

}  // namespace

void ForgetPartFailure() { tFailure = 0; }

int PartFailure() { return tFailure; }

}  // namespace hierfit::report::xlsx

/// Found before the library's own, since this module comes before it where names are looked up.
extern "C" __attribute__((visibility("default"))) FILE* lxw_tmpfile(char*) { return hierfit::report::xlsx::OpenPart(); }
