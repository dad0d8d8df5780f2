#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/chart/view/levels/LevelsItems.h"

namespace hierfit::chart {

/// The horizontal lines of panels. A line is drawn where its `unless` is the condition that names the panel, letter by
/// letter or with numbers of the same value, or where it is "false". Nothing in it is evaluated.
class LineGuides {
  public:
    explicit LineGuides(const Specification& specification);

    /// The heights of the lines of a panel, a few at most.
    std::vector<double> In(const Panels& panels, const Panels::Place& place) const;

  private:
    using Heights = std::unordered_map<std::string, std::vector<double>>;

    void Add(const LineGuide& guide);

    std::vector<std::string> fvNames;  ///< of the facet variables
    std::vector<double> fvEverywhere;
    Heights fOfConditions;
    Heights fOfNumbers;  ///< by condition with each number in its shortest form
};

/// A horizontal line of one panel.
struct PanelGuide {
    Panels::Place fPlace;
    double fHeight;
};

/// The lines of the panels that have means.
std::vector<PanelGuide> GuidesOf(const Specification& specification, const LevelsItems& items);

}  // namespace hierfit::chart
