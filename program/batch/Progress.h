#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "program/batch/ModelReport.h"
#include "program/files/ProgressLine.h"

namespace hierfit::program {

/// Takes the results of a batch as they come, from any thread. Says each failure on standard error, in the models'
/// order; on a terminal one line there tells how far the batch is, and is gone when it ends.
class Progress {
  public:
    explicit Progress(std::size_t models);

    void Take(std::size_t model, BatchResult result);

    /// The results by model; nothing for one that has none. No other thread may be at work any more.
    const std::vector<std::optional<BatchResult>>& Results() const { return fvResults; }

    /// Says the failures behind models that have no result, too.
    void TellRest();

  private:
    void Tell(std::size_t model);

    std::mutex fMutex;
    std::vector<std::optional<BatchResult>> fvResults;
    std::size_t fDone = 0;
    std::size_t fFailed = 0;
    std::size_t fTold = 0;  ///< models, from the first, whose failures have been told
    ProgressLine fLine;
};

}  // namespace hierfit::program
