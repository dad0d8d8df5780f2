#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/document/Document.h"
#include "report/archive/Archive.h"

namespace hierfit::report {

/// What a file says or carries besides the document.
struct DocxSettings {
    std::string fTitle;   ///< in the place of the document's title; none if empty
    std::string fAuthor;  ///< none if empty
    /// The pixels of a picture, `scale` to each of its own, as PNG; nothing where it is too large for that.
    std::function<std::optional<std::string>(const std::string& svg, double scale)> fMakePng;
    double fScale = 2;  ///< that is asked for first; a picture that is too large gets less
};

/// The files that make up a document for a word processor (ECMA-376, WordprocessingML), to be packed. Tables are laid
/// out for A4 with margins of an inch: on turned pages where they are wide, and in parts of some columns each where
/// that is not enough or where there are more than a table can have. Linear in the document.
std::vector<ArchiveFile> MakeDocxFiles(const document::Document& document, const DocxSettings& settings);

}  // namespace hierfit::report
