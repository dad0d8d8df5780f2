#pragma once

#include <string>
#include <string_view>

namespace hierfit::report::html {

/// Appends a text as content of an element. Whatever the text holds, it adds no element but line breaks, and it neither
/// changes the direction of what stands around it nor hides anything: control characters appear as their symbols;
/// bidirectional controls, characters that HTML forbids and bytes that are no UTF-8 as U+FFFD.
void AppendText(std::string& out, std::string_view text);

/// Appends a text that stands in an attribute between double quotes, or in an element such as `title` that holds
/// characters only; a line break becomes a blank.
void AppendAttribute(std::string& out, std::string_view text);

}  // namespace hierfit::report::html
