#pragma once

#include <vector>

#include "host/chart/view/network/Diagram.h"
#include "host/chart/view/network/DiagramLayout.h"
#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// The layers of lines, nodes and names, in this order, with their legends. Lines that are negative are dashed.
Json DiagramMarks(const Diagram& diagram, const DiagramLayout& layout);

}  // namespace hierfit::chart
