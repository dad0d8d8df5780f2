#pragma once

#include <string>
#include <string_view>

namespace hierfit::report {

/// Appends a path as a relative reference: each byte that is no letter, digit, hyphen, full stop, underscore, tilde or
/// slash by its number. Whatever bytes the path has, the result is ASCII and fit for an attribute.
void AppendUrl(std::string& out, std::string_view path);

/// The path that a reference was made from; a percent sign without two digits behind it stays.
std::string ReadUrl(std::string_view url);

}  // namespace hierfit::report
