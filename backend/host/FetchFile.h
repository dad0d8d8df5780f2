#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

/// Reads files for the chart templates.
class HIERFIT_EXPORT FetchFile {
  public:
    /// The text of a file; empty when it cannot be read. A file of the same name in the user's folder of templates is
    /// taken first. Both flags are true at every call.
    static std::string fetch(const std::string& path, bool text, bool required);
};

}  // namespace hierfit
