#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/document/Picture.h"

namespace hierfit::report::charts {

/// From where to where numbers reach; nothing yet where it is empty.
struct Extent {
    double fLow = 0;
    double fHigh = 0;
    bool fIsEmpty = true;

    void Add(double number);
    void Add(const Extent& other);
    double Length() const { return fHigh - fLow; }
};

/// Leads from numbers to pixels. The pixels may run against the numbers.
struct Scale {
    Extent fDomain;  ///< not empty, of some length
    double fStart = 0;
    double fEnd = 0;

    double At(double number) const { return fStart + (number - fDomain.fLow) / fDomain.Length() * (fEnd - fStart); }

    /// The same, kept between the ends.
    double Within(double number) const;
};

struct Tick {
    double fNumber;
    std::string fWords;
};

/// The distance between ticks: 1, 2 or 5 times a power of ten, whichever comes closest to so many steps in the length.
double TickStep(double length, int count, bool isWhole);

/// The domain of an axis over what its marks reach: set limits count first, a domain without length is widened by a
/// half or more on either side, and an axis without anything goes from 0 to 1.
Extent DomainOf(const document::PictureAxis& axis, const Extent& extent);

/// The same, rounded outwards to the ticks of about `count` steps where no limits are set.
Extent NiceDomainOf(const document::PictureAxis& axis, const Extent& extent, int count);

/// The ticks within a domain, about `count` of them: 1, 2 or 5 times a power of ten apart, all with the decimals that
/// tell them apart.
std::vector<Tick> TicksOf(const Extent& domain, int count, bool isWhole);

}  // namespace hierfit::report::charts
