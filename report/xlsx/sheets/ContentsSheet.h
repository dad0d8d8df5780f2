#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document/Document.h"
#include "report/items/Entries.h"
#include "report/xlsx/sheets/SheetWriter.h"

namespace hierfit::report::xlsx {

inline constexpr const char* kContentsName = "Contents";

/// An item of the contents and its sheet; none where it has none of its own.
struct ContentsEntry {
    const items::Entry* fpEntry;
    std::string fSheet;
};

/// Puts the contents on a sheet: title, author, the items by name, kind and title with links to their sheets; then the
/// document's diagnostics and what the workbook has to say of itself.
void PutContents(BookParts& parts, Sheet& sheet, const document::Document& document, const Properties& properties,
                 const std::vector<ContentsEntry>& entries);

}  // namespace hierfit::report::xlsx
