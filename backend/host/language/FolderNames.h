#pragma once

#include <string>
#include <system_error>
#include <vector>

namespace hierfit::language {

/// The names of all that lies in a folder, sorted, without "." and ".."; none, and why, if it cannot be read. The
/// standard library's iterator ends the process where memory is short.
std::vector<std::string> ListFolder(const std::string& folder, std::error_code& error);

}  // namespace hierfit::language
