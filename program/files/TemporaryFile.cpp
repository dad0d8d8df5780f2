#include "program/files/TemporaryFile.h"

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace hierfit::program {

namespace {

/// Those of a user who has enough of it, and those of a library that gives up.
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGABRT, SIGTRAP, SIGSEGV, SIGBUS};

std::atomic_flag gIsHeld;
TemporaryFile* gpFirst = nullptr;

sigset_t ListSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kSignals) sigaddset(&signals, signal);
    return signals;
}

void Hold() {
    while (gIsHeld.test_and_set(std::memory_order_acquire)) sched_yield();
}

/// Holds the list. The thread that does handles no signal meanwhile: it would wait for itself.
class ListHeld {
  public:
    ListHeld() {
        const sigset_t signals = ListSignals();
        pthread_sigmask(SIG_BLOCK, &signals, &fBefore);
        Hold();
    }
    ListHeld(const ListHeld&) = delete;
    ListHeld& operator=(const ListHeld&) = delete;
    ~ListHeld() {
        gIsHeld.clear(std::memory_order_release);
        pthread_sigmask(SIG_SETMASK, &fBefore, nullptr);
    }

  private:
    sigset_t fBefore{};
};

}  // namespace

TemporaryFile::TemporaryFile(const std::string& path) : fPath(path), fName(path + ".XXXXXX"), fFile(Open()) {}

TemporaryFile::~TemporaryFile() {
    if (!fIsListed) return;
    const int reason = errno;
    unlink(fName.c_str());
    Leave();
    errno = reason;
}

bool TemporaryFile::TakePlace() {
    if (!fFile.Close() || rename(fName.c_str(), fPath.c_str()) != 0) return false;
    Leave();
    return true;
}

void TemporaryFile::RemoveAtSignals() {
    struct sigaction action {};
    action.sa_handler = EndBy;
    action.sa_mask = ListSignals();
    for (const int signal : kSignals) {
        struct sigaction present {};
        sigaction(signal, nullptr, &present);
        if (present.sa_handler == SIG_DFL) sigaction(signal, &action, nullptr);
    }
}

/// It is made and listed in one step for whoever handles a signal.
int TemporaryFile::Open() {
    const ListHeld held;
    const int file = mkostemp(fName.data(), O_CLOEXEC);
    fIsListed = file >= 0;
    if (fIsListed) fpNext = std::exchange(gpFirst, this);
    return file;
}

void TemporaryFile::Leave() {
    const ListHeld held;
    TemporaryFile** link = &gpFirst;
    while (*link != this) link = &(*link)->fpNext;
    *link = fpNext;
    fIsListed = false;
}

/// Calls only what a handler may call. The list is held for good, so that no other thread makes a file any more.
void TemporaryFile::EndBy(int signal) {
    Hold();
    for (const TemporaryFile* file = gpFirst; file; file = file->fpNext) unlink(file->fName.c_str());
    std::signal(signal, SIG_DFL);
    std::raise(signal);  // comes when this returns
}

}  // namespace hierfit::program
