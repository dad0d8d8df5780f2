#pragma once

#include <string>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report {

/// The visible lines of one header or data cell, with the letters of its notes at the end.
struct CellLines {
    std::vector<std::string> fvLines;
    int fWidth = 0;  ///< of the widest line
    int fLeft = 0;   ///< of a number: its width left of the decimal sign
    bool fIsNumber = false;
    bool fIsPercentage = false;  ///< a number that ends in a percent sign
    bool fIsMissing = false;     ///< a number that is only "."

    int WidestWord() const;

    /// The least width at which no word is broken but behind the signs that join its parts.
    int WidestPart() const;

    /// Makes lines of at most that many columns; 0 is no limit.
    void Wrap(int width);
};

/// The text of a header or a data cell; null gives an empty one, since there is nothing to miss. The notes are indices
/// in the grid's.
CellLines MakeCellLines(const document::Text* text, const std::vector<int>& notes, const Grid& grid);

}  // namespace hierfit::report
