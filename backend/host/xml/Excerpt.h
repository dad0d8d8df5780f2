#pragma once

#include <cstddef>
#include <string>

#include "host/xml/SourceText.h"

namespace hierfit::xml {

/// The line around an offset and, below it, a caret at the offset. A long line is cut around it, with "..." for what is
/// left out. Tabs become blanks; other control characters, those that turn the direction of writing, and bytes that are
/// no character become U+FFFD, so that the excerpt can be shown anywhere.
std::string Excerpt(const SourceText& text, std::size_t offset);

}  // namespace hierfit::xml
