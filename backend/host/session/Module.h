#pragma once

#include <memory>
#include <string>
#include <variant>

#include "host/CFProcCustom.h"

namespace hierfit::session {

/// Loads a procedure's module and takes its one export. The module stays loaded to the end of the process.
/// Gives the factory, or the loader's reason for failing.
std::variant<CFProcCustomFactory, std::string> LoadModule(const std::string& path);

}  // namespace hierfit::session
