#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::report::html {

/// One item of a document, as its page shows and links it.
struct Entry {
    const document::Item* fpItem;
    int fDepth;  ///< headings around it
    std::string fAnchor;
};

/// All items, a heading ahead of what it holds.
std::vector<Entry> ListEntries(const document::Document& document);

/// An item's title; of a message its text. Never empty.
std::string_view TitleOf(const document::Item& item);

/// The anchor of the navigation.
inline constexpr std::string_view kContentsAnchor = "contents";

/// The anchor of the section that shows the diagnostics.
inline constexpr std::string_view kDiagnosticsAnchor = "Diagnostics";

/// Appends the navigation, which leads to every item and to the diagnostics if there are any.
void AppendContents(std::string& out, const std::vector<Entry>& entries, bool hasDiagnostics);

}  // namespace hierfit::report::html
