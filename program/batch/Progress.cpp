#include "program/batch/Progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "program/files/StandardError.h"

namespace hierfit::program {

Progress::Progress(std::size_t models) : fvResults(models), fLine(ProgressLine::Begin::AtOnce) {}

void Progress::Take(std::size_t model, BatchResult result) {
    const std::lock_guard lock(fMutex);
    ++fDone;
    if (std::holds_alternative<BatchFailure>(result)) ++fFailed;
    fvResults[model] = std::move(result);
    for (; fTold < fvResults.size() && fvResults[fTold]; ++fTold) Tell(fTold);
    fLine.Show(fmt::format("{} of {} models, {} failed", fDone, fvResults.size(), fFailed));
}

void Progress::TellRest() {
    for (; fTold < fvResults.size(); ++fTold) Tell(fTold);
}

void Progress::Tell(std::size_t model) {
    if (!fvResults[model]) return;
    const auto* failure = std::get_if<BatchFailure>(&*fvResults[model]);
    if (!failure) return;
    fLine.Erase();
    std::string line = failure->fReason;
    std::ranges::replace(line, '\n', ' ');
    PrintError(line);
}

}  // namespace hierfit::program
