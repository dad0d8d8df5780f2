#pragma once

#include <string>

namespace hierfit::report {

/// Whether a page carries the script by which tables are copied, pictures saved and marks pointed at.
enum class Scripts : unsigned char { Yes, No };

/// Whether a cell carries its number where fewer digits of it are shown.
enum class FullValues : unsigned char { No, Yes };

/// What a page says or carries besides the document.
struct HtmlSettings {
    Scripts fScripts = Scripts::Yes;
    std::string fTitle;   ///< in the place of the document's title; none if empty
    std::string fAuthor;  ///< none if empty
    FullValues fValues = FullValues::No;
};

}  // namespace hierfit::report
