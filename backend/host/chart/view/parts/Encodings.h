#pragma once

#include <string_view>

#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// A channel of numbers of a field, in pixels as they are.
Json PixelChannel(std::string_view field);

/// Lets a mark tell its field "tip" to pointers and to readers who do not see it.
void AddTip(Json& encoding);

/// Lets a mark tell its field "tip" to pointers alone: the same tip stands on another mark, or the mark is decoration.
void AddPointerTip(Json& encoding);

}  // namespace hierfit::chart
