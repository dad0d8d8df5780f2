#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/items/Entries.h"

namespace hierfit::report::html {

/// The anchor of the navigation.
inline constexpr std::string_view kContentsAnchor = "contents";

/// The anchor of the section that shows the diagnostics.
inline constexpr std::string_view kDiagnosticsAnchor = "Diagnostics";

/// Appends the navigation, which leads to every item and to the diagnostics if there are any.
void AppendContents(std::string& out, const std::vector<items::Entry>& entries, bool hasDiagnostics);

}  // namespace hierfit::report::html
