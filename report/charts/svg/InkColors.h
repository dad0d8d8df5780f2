#pragma once

#include <string_view>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// The colour of an ink on paper, such as "#1b1f24"; "none" for none. A page has others for the dark in its style
/// sheet.
std::string_view ColorOf(Ink ink);

}  // namespace hierfit::report::charts
