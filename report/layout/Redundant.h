#pragma once

#include <string>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report {

/// The rows of a table of coefficients that are set to zero because they are redundant: a note of theirs says so.
struct Redundant {
    std::vector<bool> fvRows;  ///< for each row of the grid whether it is one that can be left out
    std::vector<bool>
        fvNotes;  ///< for each of the grid's notes whether it stands in no other row and in no column header
    std::vector<std::string> fvReferences;  ///< the levels that the others are compared to, each once, without brackets
    int fCount = 0;                         ///< rows that can be left out
};

/// Finds the redundant rows. One that bears the header of rows below it cannot be left out. Linear in the grid.
Redundant FindRedundant(const Grid& grid);

}  // namespace hierfit::report
