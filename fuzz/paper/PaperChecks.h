#pragma once

#include <string_view>

namespace hierfit::fuzz {

/// Fails unless every record of a CSV file has as many fields (RFC 4180).
void CheckCsv(std::string_view csv);

/// Fails unless all lines of a pipe table have as many pipes that are no text.
void CheckMarkdown(std::string_view markdown);

/// Fails unless braces and environments are closed as they are opened.
void CheckLatex(std::string_view latex);

}  // namespace hierfit::fuzz
