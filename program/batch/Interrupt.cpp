#include "program/batch/Interrupt.h"

#include <atomic>
#include <csignal>

namespace hierfit::program {

namespace {

std::atomic<int> gSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may touch nothing else");

extern "C" void NoteSignal(int signal) { gSignal = signal; }

}  // namespace

void NoteInterrupts() {
    struct sigaction action {};
    action.sa_handler = NoteSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int signal : {SIGINT, SIGTERM}) {
        struct sigaction present {};
        sigaction(signal, nullptr, &present);
        if (present.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    }
}

bool IsInterrupted() { return gSignal != 0; }

void EndByInterrupt() {
    std::signal(gSignal, SIG_DFL);
    std::raise(gSignal);
}

}  // namespace hierfit::program
