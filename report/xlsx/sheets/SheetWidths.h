#pragma once

#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::xlsx {

/// The widths of a table's columns on a sheet, in characters: levels of row headers, then columns of data. Linear in
/// the grid.
class SheetWidths {
  public:
    explicit SheetWidths(const Grid& grid);

    int CountColumns() const { return static_cast<int>(fvWidths.size()); }
    double Of(int column) const { return fvWidths[static_cast<std::size_t>(column)]; }
    double Sum(int firstColumn, int lastColumn) const;

    /// Whether a column of data holds something else than numbers.
    bool IsText(int column) const { return fvTexts[static_cast<std::size_t>(column)]; }

  private:
    void MeasureLevels(const Grid& grid);
    void MeasureData(const Grid& grid);
    void MeasureHeaders(const Grid& grid);
    void Widen(int firstColumn, int lastColumn, double width);

    std::vector<double> fvWidths;
    std::vector<bool> fvTexts;
};

/// Characters of a text's widest line.
double MeasureWidest(std::string_view words);

/// Points of a row in which a text stands in cells so many characters wide. 0 where it takes one line: such a row needs
/// no height of its own.
double MeasureHeight(std::string_view words, double width);

/// A row's height where it has none of its own.
inline constexpr double kLineHeight = 15;

}  // namespace hierfit::report::xlsx
