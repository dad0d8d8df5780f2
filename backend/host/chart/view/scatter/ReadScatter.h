#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/chart/view/ViewContext.h"

namespace hierfit::chart {

struct ScatterPoint {
    double fX;
    double fY;
    double fFrequency;
    std::string fXInWords;
    std::string fYInWords;
    std::string fFrequencyInWords;
};

struct ScatterAxis {
    std::string fTitle;
    std::string fName;  ///< in tips
    double fLow = -0.5;
    double fHigh = 0.5;

    /// A number to digits enough for its place on the axis.
    double Place(double number) const;
};

/// Points in two dimensions with a frequency each. It owns all that it holds.
struct Scatter {
    std::vector<ScatterPoint> fvPoints;  ///< by frequency: what stands for more lies on top
    ScatterAxis fX;
    ScatterAxis fY;
    std::string fReference;  ///< to the variable of frequencies; empty without one
    std::string fFrequencyTitle;
    double fMostFrequent = 1;
};

/// Reads the points of a free plot. A point without a number for x or y is left out; one without a frequency stands for
/// one record. The axes hold the specification's span and every point, with some room; both are the same where the plot
/// is square.
Scatter ReadScatter(const ViewContext& context);

}  // namespace hierfit::chart
