#include "program/batch/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "program/StandardError.h"

namespace hierfit::program {

namespace {

constexpr std::chrono::milliseconds kBetween{100};

}  // namespace

Progress::Progress(std::size_t models) : fvResults(models), fIsTerminal(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() { Erase(); }

void Progress::Take(std::size_t model, BatchResult result) {
    const std::lock_guard lock(fMutex);
    ++fDone;
    if (std::holds_alternative<BatchFailure>(result)) ++fFailed;
    fvResults[model] = std::move(result);
    for (; fTold < fvResults.size() && fvResults[fTold]; ++fTold) Tell(fTold);
    Draw();
}

void Progress::TellRest() {
    for (; fTold < fvResults.size(); ++fTold) Tell(fTold);
}

void Progress::Tell(std::size_t model) {
    if (!fvResults[model]) return;
    const auto* failure = std::get_if<BatchFailure>(&*fvResults[model]);
    if (!failure) return;
    Erase();
    std::string line = failure->fReason;
    std::ranges::replace(line, '\n', ' ');
    PrintError(line);
}

void Progress::Erase() {
    if (!std::exchange(fIsDrawn, false)) return;
    std::fputs("\r\x1b[K", stderr);
}

void Progress::Draw() {
    const auto now = std::chrono::steady_clock::now();
    if (!fIsTerminal || (fIsDrawn && now - fDrawn < kBetween)) return;
    std::fprintf(stderr, "\r\x1b[K%zu of %zu models, %zu failed", fDone, fvResults.size(), fFailed);
    fIsDrawn = true;
    fDrawn = now;
}

}  // namespace hierfit::program
