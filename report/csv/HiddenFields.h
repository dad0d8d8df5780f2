#pragma once

#include <string>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report {

/// What records of a table hold and its layout for readers does not tell: a page that copies the table as CSV has to
/// bring it along.
struct HiddenFields {
    std::string fHeader;                ///< the header, where shown names do not make the same; without the line's end
    std::vector<std::string> fvLabels;  ///< by row its labels, where some are hidden
};

HiddenFields FindHiddenFields(const document::Table& table, const Grid& shown);

/// The same of a table whose CSV has but the names and labels that are shown.
HiddenFields FindHiddenFields(const Grid& shown);

}  // namespace hierfit::report
