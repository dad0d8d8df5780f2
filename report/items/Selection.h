#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Export.h"
#include "host/document/Document.h"
#include "report/items/Entries.h"

namespace hierfit::report::items {

/// A name that no item bears.
struct UnknownName {
    std::string fName;
    std::vector<std::string> fvNearest;  ///< names that there are, the nearest first, at most `kMostNearest`
    std::size_t fFurther = 0;            ///< how many more there are

    static constexpr std::size_t kMostNearest = 12;
};

/// Names between commas; blanks around them do not count, and neither do empty ones.
HIERFIT_EXPORT std::vector<std::string> SplitNames(std::string_view list);

/// What stands before a name's last hyphen and number.
std::string_view KindOfName(std::string_view name);

/// Whether a name is the item's, or that of its kind.
HIERFIT_EXPORT bool Bears(const Entry& entry, std::string_view name);

/// Leaves a document the chosen items alone, in their order and under their names; a heading stays while something
/// under it does. A name is an item's, or what stands before its last hyphen and number for all of that kind; that of a
/// heading chooses all under it. No names choose everything. The document is as it was when a name is unknown.
HIERFIT_EXPORT std::optional<UnknownName> Select(document::Document& document, const std::vector<std::string>& names);

/// In one line: the name, and what there is to choose from.
HIERFIT_EXPORT std::string Describe(const UnknownName& unknown);

}  // namespace hierfit::report::items
