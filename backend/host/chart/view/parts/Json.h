#pragma once

#include <nlohmann/json.hpp>

namespace hierfit::chart {

/// Keeps the order in which a view is written.
using Json = nlohmann::ordered_json;

}  // namespace hierfit::chart
