#pragma once

#include <vector>

#include "report/items/Entries.h"

namespace hierfit::report::html {

/// A table that stood on the page before.
struct Repeat {
    const items::Entry* fpFirst = nullptr;    ///< null where the entry repeats none
    const items::Entry* fpHeading = nullptr;  ///< the nearest heading around the first; null where there is none
};

/// For each entry the first table that it repeats to the letter, with all that belongs to it. Small tables repeat none:
/// it is quicker to read them than where they stood. Several requests for means of the same term, which differ in their
/// contrasts, give such tables. Time is linear in what the tables hold.
std::vector<Repeat> FindRepeats(const std::vector<items::Entry>& entries);

}  // namespace hierfit::report::html
