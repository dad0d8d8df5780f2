#pragma once

#include <string>
#include <vector>

#include "host/chart/picture/PictureContext.h"
#include "host/chart/picture/graphs/NetworkLegends.h"

namespace hierfit::chart {

/// A node-and-edge diagram as its data have it: nodes about a target, one line from each. A node without a place and a
/// link without one of its ends are left out; a link without a weight takes the least. Points and names of the same row
/// are one node.
struct Network {
    explicit Network(const PictureContext& context);

    WeightLegend fWeights;
    SignClasses fSigns;
    TypeClasses fTypes;
    document::NetworkPicture fPicture;  ///< nodes, links and target; their numbers are of all classes of the data
    std::vector<std::vector<std::string>> fvRows;  ///< for each node its name, type, weight and sign in words
};

}  // namespace hierfit::chart
