#pragma once

#include <cstddef>
#include <vector>

#include "host/KEST_Variable.h"

namespace hierfit {

/// One node of a diagram with its line to the target, in units of the node rows.
struct NodeGeometry {
    double fFromX;
    double fFromY;
    double fToX;
    double fToY;
};

/// Lays nodes on the left half of an ellipse about the target at (r, (n + 1) / 2), with half-axes r and r / 2; row 0 is
/// the top node. r, the number of nodes or 1 without any, goes to `radius`.
std::vector<NodeGeometry> ComputeNodeGeometry(std::size_t nodeCount, double& radius);

/// From how far left of its node a name stands.
double LabelOffset(double radius);

/// The weight of a line, 1 to 9, from the significance behind it: a smaller one weighs more.
double SignificanceToWeight(double significance);

/// A diagram's word for a variable's measurement level; "unknown" for a level without one.
const char* MeasurementType(const KEST_Variable& variable);

}  // namespace hierfit
