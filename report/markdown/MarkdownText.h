#pragma once

#include <string>
#include <string_view>

namespace hierfit::report::markdown {

/// Appends a text within a line, whatever it holds: what is markup has a backslash before it, a line feed becomes a
/// break, control and bidirectional characters become visible.
void AppendText(std::string& out, std::string_view text);

/// The same at the beginning of a line, where lists, rules and headings begin.
void AppendParagraph(std::string& out, std::string_view text);

}  // namespace hierfit::report::markdown
