#pragma once

#include <string>
#include <string_view>

#include "report/latex/Needs.h"

namespace hierfit::report::latex {

/// A comment that says what the document needs that takes a fragment in.
std::string MakeComment(std::string_view producer, const Needs& needs);

/// What a document is called and whose it is: as texts, for the properties of its PDF, and as markup.
struct TitlePage {
    std::string_view fTitle;
    std::string_view fAuthor;  ///< none if empty
    std::string fTitleMarkup;
    std::string fAuthorMarkup;
};

/// What stands before the text of a document that compiles by itself.
std::string MakePreamble(const TitlePage& page, const Needs& needs);

}  // namespace hierfit::report::latex
