#pragma once

#include <span>
#include <string>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// Appends the element of a form; `attributes` are markup, each with a blank ahead.
void AppendForm(std::string& out, const Form& form, const std::string& attributes);

/// Whether several such forms of the same paint can be one element, if it is not filled.
bool IsLines(const Form& form);

/// Appends forms that are lines as one element.
void AppendLines(std::string& out, std::span<const Shape> lines, const std::string& attributes);

}  // namespace hierfit::report::charts
