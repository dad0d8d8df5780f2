#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Export.h"
#include "host/document/Document.h"

namespace hierfit::report::items {

/// One item of a document, as it is listed, linked and chosen.
struct Entry {
    const document::Item* fpItem;
    int fDepth;           ///< headings around it
    std::string fAnchor;  ///< its name, as in `Anchors`
};

/// All items, a heading ahead of what it holds.
HIERFIT_EXPORT std::vector<Entry> ListEntries(const document::Document& document);

/// The cells of all tables among entries.
HIERFIT_EXPORT std::size_t CountCells(const std::vector<Entry>& entries);

/// "heading", "table", "chart" or "message".
HIERFIT_EXPORT std::string_view KindOf(const document::Item& item);

/// An item's title; of a message its text. Never empty.
HIERFIT_EXPORT std::string_view TitleOf(const document::Item& item);

/// The document's title. Never empty.
HIERFIT_EXPORT std::string_view TitleOf(const document::Document& document);

}  // namespace hierfit::report::items
