#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::xlsx {

/// A text fit for a cell: control characters become visible, what is no character U+FFFD. Line feeds stay.
std::string MakeCellText(std::string_view words);

/// A cell's text as it stands in the file, where "_x0041_" would be the letter A.
std::string EscapeCodes(std::string text);

/// Letters of notes as superscripts, "ᵃ" or "ᵃ,ᵇ". There is no such letter q, which stands in brackets.
std::string SpellMarks(const std::vector<int>& notes, const Grid& grid);
std::string SpellMark(const Note& note);

/// Shortens a text to what a cell holds, with dots at its end; its length before if that was too much, else 0.
std::size_t CutText(std::string& text);

}  // namespace hierfit::report::xlsx
