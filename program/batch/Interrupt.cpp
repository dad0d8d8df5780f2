#include "program/batch/Interrupt.h"

#include <atomic>
#include <csignal>
#include <cstddef>
#include <iterator>

namespace hierfit::program {

namespace {

std::atomic<int> gSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may touch nothing else");

constexpr int kSignals[] = {SIGINT, SIGTERM};
struct sigaction gBefore[std::size(kSignals)];

/// Notes the first of a kind; one more does what it did before.
extern "C" void NoteSignal(int signal) {
    gSignal = signal;
    sigaction(signal, &gBefore[signal == kSignals[0] ? 0 : 1], nullptr);
}

}  // namespace

void NoteInterrupts() {
    struct sigaction action {};
    action.sa_handler = NoteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], nullptr, &gBefore[i]);
        if (gBefore[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
}

bool IsInterrupted() { return gSignal != 0; }

void EndByInterrupt() {
    std::signal(gSignal, SIG_DFL);
    std::raise(gSignal);
}

}  // namespace hierfit::program
