#pragma once

#include <cstddef>

#include "host/document/Text.h"

namespace hierfit::pivot {

/// Whether two labels name the same category: texts of the same kind and content. What is asked of the display does not
/// count: translation, name or label, value or label.
bool IsSameLabel(const document::Text& a, const document::Text& b);

/// The same number for labels that are the same.
std::size_t HashLabel(const document::Text& label);

}  // namespace hierfit::pivot
