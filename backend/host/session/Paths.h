#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit::session {

/// Where the installation's files lie, found from where this library lies: in the build tree and in an installed prefix
/// alike.
struct Paths {
    std::string fShareDirectory;  ///< holds `template/` and `languages/`
    std::string fModuleFolder;    ///< holds the procedure's module and those of formats
    std::string fModule;          ///< the procedure's

    std::string LanguageFolder() const { return fShareDirectory + "/languages"; }
};

HIERFIT_EXPORT Paths FindPaths();

}  // namespace hierfit::session
