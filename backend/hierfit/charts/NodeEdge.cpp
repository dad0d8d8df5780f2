#include "hierfit/charts/NodeEdge.h"

#include <cmath>

namespace hierfit {

namespace {

struct Weight {
    double fBelow;  ///< significances below this
    double fWeight;
};

constexpr Weight kWeights[] = {{0.0001, 9.0}, {0.0005, 8.0}, {0.001, 7.0}, {0.005, 6.0},
                               {0.01, 5.0},   {0.05, 4.0},   {0.1, 3.0},   {0.2, 2.0}};

}  // namespace

std::vector<NodeGeometry> ComputeNodeGeometry(std::size_t nodeCount, double& radius) {
    const auto n = static_cast<double>(nodeCount);
    const double r = nodeCount == 0 ? 1.0 : n;
    const double c = (n + 1) / 2;
    std::vector<NodeGeometry> nodes;
    nodes.reserve(nodeCount);
    for (std::size_t i = nodeCount; i >= 1; --i) {
        const auto y = static_cast<double>(i);
        const double height = 2 * std::abs(y - c);
        nodes.push_back({r - std::sqrt(r * r - height * height), y, r, c});
    }
    radius = r;
    return nodes;
}

double LabelOffset(double radius) { return radius == 1 ? -0.4 : -0.2 * radius; }

double SignificanceToWeight(double significance) {
    for (const Weight& weight : kWeights) {
        if (significance < weight.fBelow) return weight.fWeight;
    }
    return 1.0;
}

const char* MeasurementType(const KEST_Variable& variable) {
    switch (variable.GetMeasurementLevel()) {
        case 1:
            return "categorical";
        case 2:
            return "ordinal";
        case 3:
            return "continuous";
        default:
            return "unknown";
    }
}

}  // namespace hierfit
