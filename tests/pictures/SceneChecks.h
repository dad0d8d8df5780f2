#pragma once

#include <functional>
#include <string>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::test {

/// What is wrong with a scene, a line for each fault: words that lie on each other, reach beyond the edge or are
/// smaller than 12 px, and lines and circles beyond the edge. Each line of words counts with the box that its font
/// reserves, turned as it is, but for a quarter of a pixel on each side.
std::vector<std::string> FaultsOf(const report::charts::Scene& scene);

/// Lays a picture out for a desk and for a phone and expects no faults, a width within the one given, and so many marks
/// in the same order.
void CheckLayouts(const std::function<report::charts::Scene(double)>& layOut, std::size_t marks);

/// The words of all texts, in drawing order.
std::vector<std::string> WordsOf(const report::charts::Scene& scene);

/// The elements that are marks, in drawing order.
std::vector<const report::charts::Element*> MarksOf(const report::charts::Scene& scene);

/// The tips of all marks, in drawing order.
std::vector<std::string> TipsOf(const report::charts::Scene& scene);

}  // namespace hierfit::test
