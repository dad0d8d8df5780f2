#pragma once

#include <vector>

#include "host/chart/picture/ShownVariable.h"

namespace hierfit::chart {

/// One bar of a histogram, in the units of its variable.
struct Bin {
    double fCenter;
    double fLow;
    double fHigh;
    double fCount;
};

/// The bins of a histogram, from the lowest to the highest, and what follows from them.
struct Bins {
    std::vector<Bin> fvBins;
    double fWidth = 1;  ///< of a typical bin: the median distance of neighbours
    double fCount = 0;  ///< of all bins

    double Low() const { return fvBins.empty() ? 0 : fvBins.front().fLow; }
    double High() const { return fvBins.empty() ? 1 : fvBins.back().fHigh; }
    double Mean() const;
    double Deviation() const;  ///< the square root of the mean square about the mean; 0 without counts
    bool AreWhole() const;     ///< one bin for one whole number each
};

/// Reads centres and counts. Rows without a number in either, or with a negative count, are left out; counts at the
/// same centre add up. Edges lie half way between neighbours, but never further out than half a typical width: a lone
/// value far from the others stays as narrow as they are.
Bins ReadBins(const ShownVariable* centers, const ShownVariable* counts);

}  // namespace hierfit::chart
