#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hierfit {

/// A number as C++ streams write it by default: up to six significant digits.
std::string NumberToText(double number);

/// The number at the begin of a text; 0 where there is none. `isWhole` tells whether the text is that number and
/// nothing else. Texts are in the C locale; a number too large is the largest one and not whole.
double ParseNumber(const std::string& text, bool& isWhole);
double ParseNumber(const std::string& text);

/// The entry of a column, or an empty text where the column is too short.
template <class Column>
const std::string& EntryOf(const Column& column, std::size_t row) {
    static const std::string kNone;
    return row < column.fvValues.size() ? column.fvValues[row] : kNone;
}

/// Replaces the first place of a marker at or behind `from`; gives that place, or npos when there is none.
std::size_t ReplaceFirst(std::string& text, std::string_view marker, std::string_view replacement,
                         std::size_t from = 0);

/// Replaces every place of a marker; what it puts in is not searched again.
void ReplaceAll(std::string& text, std::string_view marker, std::string_view replacement);

/// Erases from the first `begin` through the next `end` behind it, where there are both.
void EraseFromThrough(std::string& text, std::string_view begin, std::string_view end);

/// Cuts the panels out of chart XML.
void RemoveFacetingBlock(std::string& xml);

/// Cuts the second of two panel variables out of chart XML, with its level of the layout.
void RemoveSecondFacet(std::string& xml);

}  // namespace hierfit
