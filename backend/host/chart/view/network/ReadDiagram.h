#pragma once

#include "host/chart/view/ViewContext.h"
#include "host/chart/view/network/Diagram.h"

namespace hierfit::chart {

/// Reads the marks of a node-and-edge diagram. A node without a place and a link without one of its ends are left out;
/// a link without a weight takes the least. Points and names of the same row are one node.
Diagram ReadDiagram(const ViewContext& context);

}  // namespace hierfit::chart
