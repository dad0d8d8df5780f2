#pragma once

#include <string>
#include <variant>

namespace hierfit::report {

/// What a module at a path exports under a name; or why it cannot be had. The module stays loaded, since libraries
/// behind it may keep threads and types of their own.
std::variant<void*, std::string> FindSymbol(const std::string& path, const char* name);

}  // namespace hierfit::report
