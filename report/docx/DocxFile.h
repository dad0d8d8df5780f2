#pragma once

#include <vector>

#include "host/document/Document.h"
#include "report/archive/Archive.h"
#include "report/docx/DocxSettings.h"

namespace hierfit::report {

/// The files that make up a document for a word processor (ECMA-376, WordprocessingML), to be packed. Tables are laid
/// out for A4 with margins of an inch: on turned pages where they are wide, and in parts of some columns each where
/// that is not enough or where there are more than a table can have. Linear in the document.
std::vector<ArchiveFile> MakeDocxFiles(const document::Document& document, const DocxSettings& settings);

}  // namespace hierfit::report
