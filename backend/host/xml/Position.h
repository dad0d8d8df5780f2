#pragma once

#include <string>

namespace hierfit::xml {

/// A line and a column, from 1, columns in characters.
struct Position {
    int fLine;
    int fColumn;
};

/// Where and why a text is no XML that the host reads. Line and column count from 1, columns in characters.
struct ParseError {
    std::string fReason;  ///< such as "mismatched tag"
    int fLine;
    int fColumn;
    std::string fExcerpt;  ///< the line and, below it, a caret at the column; long lines are cut around it
};

}  // namespace hierfit::xml
