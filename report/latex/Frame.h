#pragma once

#include <string>
#include <string_view>

#include "report/latex/Needs.h"

namespace hierfit::report::latex {

/// A comment that says what the document needs that takes a fragment in.
std::string MakeComment(std::string_view producer, const Needs& needs);

/// What stands before the text of a document that compiles by itself. Title and author are markup.
std::string MakePreamble(std::string_view title, std::string_view author, const Needs& needs);

}  // namespace hierfit::report::latex
