#pragma once

namespace hierfit {

/// Stands in the documents' arrays for a figure that is missing.
inline constexpr const char* kMissingToken = "__MISSING__";

}  // namespace hierfit
