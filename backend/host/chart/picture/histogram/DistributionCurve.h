#pragma once

#include <optional>
#include <vector>

#include "host/chart/picture/histogram/Bins.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Picture.h"

namespace hierfit::chart {

/// What a distribution lets expect over the bins of a histogram.
struct DistributionCurve {
    std::vector<document::CurvePoint> fvPoints;  ///< in order of x; empty: there is no curve
    bool fIsOfCounts = false;                    ///< a point stands for one whole number
};

/// The curve in the bins' units: all counts, times the width of a bin, times the density. 121 points from the lowest
/// edge to the highest, or one for each whole number, thinned out where they are very many. The normal distribution
/// takes its mean and deviation from the bins, and serves a target of a continuous type only: fieldType is 2, or not
/// told. There is no curve over fewer than three bins, nor for parameters that are missing or out of range.
DistributionCurve MakeDistributionCurve(const Bins& bins, const Curve& curve, std::optional<int> fieldType);

}  // namespace hierfit::chart
