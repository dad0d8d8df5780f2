#pragma once

#include <string>

#include "host/document/Picture.h"

namespace hierfit::chart {

/// Where a picture breaks its word: numbers that cannot be placed or mean nothing, limits that are the wrong way round,
/// rows that do not fit their table. Empty for a sound one.
std::string FaultsOf(const document::Picture& picture);

}  // namespace hierfit::chart
