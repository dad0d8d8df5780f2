#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/chart/picture/levels/Means.h"

namespace hierfit::chart {

/// The horizontal lines of panels. A line is drawn where its `unless` is the condition that names the panel, letter by
/// letter or with numbers of the same value, or where it is "false". Nothing in it is evaluated.
class LineGuides {
  public:
    explicit LineGuides(const Specification& specification);

    /// The heights of the lines of a panel, a few at most.
    std::vector<double> In(const Panels& panels, const document::PanelPlace& place) const;

  private:
    using Heights = std::unordered_map<std::string, std::vector<double>>;

    void Add(const LineGuide& guide);

    std::vector<std::string> fvNames;  ///< of the facet variables
    std::vector<double> fvEverywhere;
    Heights fOfConditions;
    Heights fOfNumbers;  ///< by condition with each number in its shortest form
};

/// The lines of the panels that have means, with their tips.
std::vector<document::LevelGuide> GuidesOf(const Specification& specification, const Means& means);

}  // namespace hierfit::chart
