#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Where the run's files lie.
class HIERFIT_EXPORT PathFinder {
  public:
    /// The folder that holds `template/` and `languages/`, with a separator at its end.
    std::string GetBaseDirectory() const;

    /// Where the run's string tables lie: what a `FacSTDictionary` is made from.
    std::string GetStringTableLocation() const;
};

/// Gives the path finder of the run that is under way. The number, 3 at every call, names the module that asks.
class HIERFIT_EXPORT PathFactory {
  public:
    static PathFinder getPathInstance(int module = 0);
};

}  // namespace hierfit
