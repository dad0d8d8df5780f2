#pragma once

namespace hierfit::interface {

/// What is said when memory is short. A string holds it without an allocation.
inline constexpr const char* kShortMemory = "memory is short";

}  // namespace hierfit::interface
