#pragma once

#include "host/chart/specification/Specification.h"
#include "host/chart/view/network/Diagram.h"
#include "host/chart/view/network/TargetBox.h"

namespace hierfit::chart {

/// Where a diagram's parts stand. Scales lead from the units of the data to pixels, y upward.
struct DiagramLayout {
    double fWidth;
    double fHeight;
    double fLowX;  ///< the limits of x, and the pixels that they fall on
    double fHighX;
    double fStart;
    double fEnd;
    double fLowY;  ///< the limits of y; they fall on the lower and the upper edge
    double fHighY;
    TargetBox fBox;
};

/// The room between a node and its name, and the most that a name may take.
inline constexpr double kNameGap = 11;
inline constexpr double kLongestName = 230;

/// Lays a diagram out in 640 pixels: the target's box on the right, the nodes as far right as their names need, a row
/// of 60 to 20 pixels for each node. Without nodes the box is all.
DiagramLayout LayDiagramOut(const Plot& plot, const Diagram& diagram, bool hasHistogram);

}  // namespace hierfit::chart
