#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/xlsx/cells/NumberCode.h"

namespace hierfit::report::xlsx {

/// The number formats of a workbook, by index; index 0 is the general one. Spreadsheets take about 200 of them, so what
/// would take more is shown otherwise and counted.
class NumberCodes {
  public:
    NumberCodes();

    /// The format that shows these words for a number, which is finite, with marks behind them. Words for which there
    /// is no format any more are shown with one place more, or in full.
    int Find(double number, std::string_view words, const std::string& marks);

    const std::string& At(int index) const { return fvCodes[static_cast<std::size_t>(index)]; }

    std::size_t CountReshaped() const { return fReshaped; }  ///< figures that are shown in other words
    std::size_t CountUnmarked() const { return fUnmarked; }  ///< figures without their marks

  private:
    int FindShaped(NumberShape shape);
    int FindUnmarked(double number, std::string_view words);
    int FindRare(double number, std::string_view words, const NumberShape* shape);
    int Mark(int index, const std::string& marks);
    int Add(const std::string& code, std::size_t most);

    std::vector<std::string> fvCodes;
    std::unordered_map<std::string, int> fIndices;
    std::array<std::array<int, kMostPlaces + 2>, 4> fShaped;  ///< by form and places; 0 where there is none yet
    std::size_t fReshaped = 0;
    std::size_t fUnmarked = 0;
};

}  // namespace hierfit::report::xlsx
