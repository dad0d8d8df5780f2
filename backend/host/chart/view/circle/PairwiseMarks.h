#pragma once

#include "host/chart/view/circle/CircleLayout.h"
#include "host/chart/view/circle/ReadPairwise.h"
#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// The items of all panels: lines (with an end x2), what is set off last, and nodes (with a name's place lx).
Json PairwiseValues(const Pairwise& pairwise, const CircleLayout& layout, const Panels& panels);

/// The layers of one panel: lines, nodes and names. What is set off is solid, wide and of its own colour; the rest is
/// dashed, and fainter the more lines there are.
Json PairwiseLayers(const Pairwise& pairwise, const CircleLayout& layout);

}  // namespace hierfit::chart
