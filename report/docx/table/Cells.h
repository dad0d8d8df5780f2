#pragma once

#include <string>
#include <string_view>
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

/// A label as it is set: a sign at its end, as that of thresholds, stays with the word before it.
std::string BindSign(std::string_view label);

/// Appends the superscript letters of notes, by their indices.
void AppendMarks(std::string& out, const Grid& grid, const std::vector<int>& notes);

}  // namespace hierfit::report::docx
