#pragma once

#include <string>
#include <vector>

#include "host/document/Picture.h"
#include "report/charts/layout/Scene.h"
#include "report/charts/layout/diagrams/TargetBox.h"

namespace hierfit::report::charts {

/// Where everything of a network stands: nodes from the left, each with its name on its left, and the target's box at
/// the right. On a narrow picture the names break into lines, rows are lower, and the box is narrower.
struct NetworkPlaces {
    double fWidth = 0;
    double fHeight = 0;
    TargetBox fBox;
    Point fTarget;  ///< on the edge of the box, where links end
    std::vector<Point> fvNodes;
    std::vector<std::vector<std::string>> fvNames;  ///< in lines; none where a name would lie on another one
    Scale fX;                                       ///< of the picture's numbers
    Scale fY;
};

/// The radius of nodes, by their number, and the distance of their names.
double NodeRadius(std::size_t nodes);
inline constexpr double kNameGap = 13;

NetworkPlaces PlaceNetwork(const document::NetworkPicture& picture, double width);

}  // namespace hierfit::report::charts
