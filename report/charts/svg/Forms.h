#pragma once

#include <span>
#include <string>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// Appends the element of a form. `attributes`, each with a blank ahead, and `content`, ahead of any words, are markup.
void AppendForm(std::string& out, const Form& form, const std::string& attributes, const std::string& content = {});

/// Appends the element of a circle as a dot of a round pen, which is as wide as the circle. Its paint and the pen are
/// up to the caller: what many share need not be told for each.
void AppendDot(std::string& out, const Circle& circle, const std::string& attributes, const std::string& content);

/// Whether several such forms of the same paint can be one element, if it is not filled.
bool IsLines(const Form& form);

/// Appends forms that are lines as one element.
void AppendLines(std::string& out, std::span<const Shape> lines, const std::string& attributes);

}  // namespace hierfit::report::charts
