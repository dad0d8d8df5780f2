#pragma once

#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::html {

/// Which columns of a grid are columns of numbers, and what it takes to set them below one another at the decimal sign.
/// It points into the grid's table.
class NumberColumns {
  public:
    explicit NumberColumns(const Grid& grid);

    /// Whether most cells of a column are texts. Then its few numbers are set as texts are, else they would stand apart.
    bool IsText(int column) const { return At(column).fTexts >= At(column).fNumbers; }

    /// What a number's words lack behind the decimal sign, compared to the longest of the column: room for this, to
    /// the right of the words, aligns them.
    std::string_view PaddingOf(int column, std::string_view words) const;

  private:
    struct Column {
        int fTexts = 0;
        int fNumbers = 0;
        std::string_view fTail;  ///< the longest, from the decimal sign on
    };

    const Column& At(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

    std::vector<Column> fvColumns;
};

/// Whether a text is a number to the reader, a missing one included.
bool IsNumber(const document::Text& text);

}  // namespace hierfit::report::html
