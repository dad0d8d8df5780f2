#pragma once

#include <cstddef>
#include <vector>

#include "host/document/Picture.h"
#include "report/charts/layout/Axes.h"
#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// A node of a circle and its name, about the circle's middle.
struct CirclePlace {
    Point fAt;
    std::vector<Shape> fvName;  ///< a text for each line; none where names would lie on each other
};

/// Circles of one size, a circle for each panel: from the top clockwise; two nodes stand level. Names stand outside:
/// upright up to 14 nodes, beyond that along the radius.
struct CirclePlaces {
    bool fAreNamesRadial = false;
    std::vector<std::vector<CirclePlace>> fvPanels;
    Frame fReach;  ///< about the middle: what all nodes and names take
};

/// The width that a circle takes at least, with its names.
double LeastCircleWidth(const std::vector<document::CirclePanel>& panels);

CirclePlaces PlaceCircles(const std::vector<document::CirclePanel>& panels, double width);

}  // namespace hierfit::report::charts
