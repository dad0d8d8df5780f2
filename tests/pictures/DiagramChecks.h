#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::test {

/// What desk and phone leave to a picture.
inline constexpr double kWidths[] = {708, 328};

/// Expects that a picture has no fault at both widths and stays within them, and that its marks, so many, come in the
/// same order.
void CheckLayouts(const std::function<report::charts::Scene(double)>& layOut, std::size_t marks);

/// The elements that are marks, in drawing order.
std::vector<const report::charts::Element*> MarksOf(const report::charts::Scene& scene);

/// The entries of legends, each by its words.
const report::charts::Element* EntryOf(const report::charts::Scene& scene, const std::string& words);

/// The tips of the marks that have a key of the element.
std::vector<std::string> TipsWithKeysOf(const report::charts::Scene& scene, const report::charts::Element& element);

/// Whether all lines and points are in the scene, as numbers.
bool AreMarksInside(const report::charts::Scene& scene);

/// So many names of a kind: "short", "equal", "long" or "unbroken".
std::vector<std::string> NamesOf(const std::string& kind, int count);

}  // namespace hierfit::test
