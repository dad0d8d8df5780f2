#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/chart/specification/Specification.h"
#include "host/chart/view/network/Diagram.h"
#include "host/chart/view/network/NodeTypes.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Levels.h"

namespace hierfit::chart {

/// What a diagram's weights mean, by the legend for the reference; from the data where there is no legend. A legend
/// shows at most six of the weights between its limits, the ends among them.
DiagramWeights MakeWeights(const Specification& specification, const std::string& reference,
                           const ShownVariable* weight);

/// For each level its place among the signs: in order, but what the run's language calls "Negative" last.
std::vector<std::size_t> OrderSigns(const Levels& signs);

DiagramSigns MakeSigns(const Specification& specification, const std::string& reference, const Levels& signs,
                       const std::vector<std::size_t>& signOfLevel);

DiagramTypes MakeTypes(const Specification& specification, const std::string& reference, const NodeTypes& types,
                       const ShownVariable* variable);

}  // namespace hierfit::chart
