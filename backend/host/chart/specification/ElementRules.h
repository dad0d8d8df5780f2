#pragma once

#include <span>
#include <string_view>

#include "host/chart/specification/ChartElement.h"
#include "host/chart/specification/Specification.h"

namespace hierfit::chart {

/// One row of the grammar: an element, where it stands, what it bears, and what it adds to the specification.
struct ElementRule {
    std::string_view fName;
    std::string_view fParent;
    int fMost;                     ///< that many are read in a chart; the others are left out
    std::string_view fAttributes;  ///< parted by blanks

    /// False leaves the element and all below it out.
    bool (*fpRead)(const ChartElement& element, Specification& specification);
};

/// The plot and what stands in it.
std::span<const ElementRule> PlotRules();

/// Panels and legends.
std::span<const ElementRule> GuideRules();

/// Words, and data variables tied to slots.
std::span<const ElementRule> WordRules();

}  // namespace hierfit::chart
