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
    bool fIsMissing = false;  ///< a number that is only "."

    int WidestWord() const;

    /// Makes lines of at most that many columns; 0 is no limit.
    void Wrap(int width);
};

/// The text of a cell; null gives an empty one. The notes are indices in the grid's.
CellLines MakeCellLines(const document::Text* text, const std::vector<int>& notes, const Grid& grid);

}  // namespace hierfit::report
