#pragma once

#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// The look that all views share.
Json ViewConfig();

}  // namespace hierfit::chart
