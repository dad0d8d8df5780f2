#pragma once

#include <string>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::docx {

enum class Merge : unsigned char { None, Begin, Continue };  ///< with the cell below, with that above

/// How a cell of headers stands.
struct CellShape {
    int fWidth = 0;
    int fSpan = 1;  ///< columns
    Merge fMerge = Merge::None;
    bool fIsInHeader = false;
    bool fIsLastOfHeader = false;  ///< a rule stands below it
};

/// Appends the start of a cell, down to where its paragraph stands.
void AppendCellStart(std::string& out, const CellShape& shape);

inline constexpr const char* kCellEnd = "</w:tc>";

/// Appends the superscript letters of notes, by their indices.
void AppendMarks(std::string& out, const Grid& grid, const std::vector<int>& notes);

}  // namespace hierfit::report::docx
