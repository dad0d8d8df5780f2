#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/chart/view/levels/LevelsItems.h"
#include "host/chart/view/levels/LineGuides.h"

namespace hierfit::chart {

/// What an axis must hold.
struct Extent {
    double fLow = 0;
    double fHigh = 0;
    bool fIsEmpty = true;

    void Add(double value);
};

/// From where to where an axis goes: limits of the specification count first.
Extent DomainWithin(const Span& span, Extent extent);

/// The scale of that domain. A domain without length is widened; one without limits is rounded outwards to ticks.
Json ScaleWithin(const Span& span, const Extent& domain, int tickCount);

/// The axis of means: what its channels have in common.
struct ValueAxis {
    std::vector<std::string> fvTitle;
    Json fScale;
    std::string fFormat;
    int fTickCount = 6;

    /// The definition of a channel for a field of the data.
    Json Channel(std::string_view field) const;
};

/// `length`: of the axis in pixels. Heights of guides count for its range.
ValueAxis MakeValueAxis(const ViewContext& context, const LevelsMarks& marks, const LevelsItems& items,
                        const std::vector<PanelGuide>& guides, double length);

}  // namespace hierfit::chart
