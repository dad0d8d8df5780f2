#pragma once

#include <cstddef>

#include "host/document/Picture.h"

namespace hierfit::fuzz {

std::size_t CountMarks(document::Picture picture);

/// A picture with its marks so many times, side by side in their order. A whole one has its levels, panels and nodes so
/// many times too, with marks each.
document::Picture Multiply(document::Picture picture, std::size_t times, bool isWhole);

}  // namespace hierfit::fuzz
