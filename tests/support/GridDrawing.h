#pragma once

#include <string>

#include "report/layout/Grid.h"

namespace hierfit::test {

/// A grid as lines of texts parted by " | ": "<" and "^" stand where a header reaches to the right or down, "~" for the
/// blank header, "[...]" about a dimension's name, "*a" behind what a note marks. The lettered notes follow.
std::string DrawGrid(const report::Grid& grid);

}  // namespace hierfit::test
