#pragma once

#include <string>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::test {

/// What is wrong with the words of a scene, a line for each fault: words that lie on each other, reach beyond the edge
/// or are smaller than 12 px. Each line of words counts with the box that its font reserves, turned as it is, but for a
/// quarter of a pixel on each side.
std::vector<std::string> FaultsOf(const report::charts::Scene& scene);

/// The words of all texts, in drawing order.
std::vector<std::string> WordsOf(const report::charts::Scene& scene);

/// The tips of all marks, in drawing order.
std::vector<std::string> TipsOf(const report::charts::Scene& scene);

}  // namespace hierfit::test
