#pragma once

#include <string>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// A scene as lines that a person can review: its size, then each element on a line of its own with what it is made of,
/// where, in which inks, and what it says. Places are whole pixels.
std::string DescribeScene(const Scene& scene);

}  // namespace hierfit::report::charts
