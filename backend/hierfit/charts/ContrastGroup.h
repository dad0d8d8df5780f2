#pragma once

#include <array>
#include <map>
#include <string>
#include <unordered_map>

#include "hierfit/charts/ContrastRows.h"
#include "hierfit/store/Emmeans.h"

namespace hierfit {

/// One panel of a chart of contrasts.
struct ContrastGroup {
    std::array<std::string, 2> fvFacetValues;  ///< empty where there is no such panel variable
    double fBase;                              ///< the mean that levels are compared with: the panel's horizontal line
};

/// The panels, by their facet values joined, in bytewise order.
using ContrastGroups = std::map<std::string, ContrastGroup>;

/// The means of a block by their combination of factor levels: its values joined in the order of the fields' names, so
/// that tables with their columns in different orders meet. The first of several means of a combination counts.
std::unordered_map<std::string, std::string> MakeMeansByLevels(const EmmeansData& block);

/// The combination that a row of contrasts is about, as `MakeMeansByLevels` keys it.
std::string LevelKey(const ContrastRows& rows, std::size_t row);

/// Gives each panel one of the XML's line guides, in order, and cuts those that none takes.
void FillLineGuides(std::string& xml, const ContrastGroups& groups);

}  // namespace hierfit
