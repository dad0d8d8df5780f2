#pragma once

#include <string>

namespace hierfit::chart {

/// The look that all views share: an object's JSON without blanks, made once.
const std::string& ViewConfig();

}  // namespace hierfit::chart
