#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace hierfit::language {

/// The bytes of a regular file, taken in one read; nothing when it cannot be read whole or is larger than the limit.
std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit);

}  // namespace hierfit::language
