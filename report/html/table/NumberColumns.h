#pragma once

#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::html {

/// Which columns of a grid hold numbers, and what it takes to set them below one another at the decimal sign. It points
/// into the grid's table.
class NumberColumns {
  public:
    explicit NumberColumns(const Grid& grid);

    /// Whether all cells of a column are texts.
    bool IsText(int column) const { return !At(column).fHasNumbers; }

    /// What a number's words lack behind the decimal sign, compared to the longest of the column: room for this, to
    /// the right of the words, aligns them.
    std::string_view PaddingOf(int column, std::string_view words) const;

  private:
    struct Column {
        bool fHasNumbers = false;
        std::string_view fTail;  ///< the longest, from the decimal sign on
    };

    const Column& At(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

    std::vector<Column> fvColumns;
};

/// Whether a text is a number to the reader, a missing one included.
bool IsNumber(const document::Text& text);

}  // namespace hierfit::report::html
