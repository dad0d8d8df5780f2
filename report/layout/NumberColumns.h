#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report {

/// Bytes of a number's words ahead of its decimal sign, or of the place where that would stand.
std::size_t IntegerPartOf(std::string_view words);

/// Which columns of a grid are columns of numbers, and what it takes to set them below one another at the decimal sign,
/// percentages among percentages and all others among themselves. It points into the grid's table.
class NumberColumns {
  public:
    explicit NumberColumns(const Grid& grid);

    /// Whether a column is one of texts: most of its cells are, or some are labels of the values that the others show.
    /// Then its numbers are set as texts are, else they would stand apart.
    bool IsText(int column) const { return At(column).fHasValueLabels || At(column).fTexts >= At(column).fNumbers; }

    /// What a number's words lack behind the decimal sign, compared to the whole column: room for this, to the right of
    /// the words, aligns them in every font whose digits are equally wide.
    std::string PaddingOf(int column, std::string_view words) const;

    /// Whether some figures have more decimals than their format has, since they would show as zero.
    bool HasSmallFigures() const { return fHasSmallFigures; }

  private:
    /// What stands behind a number's integer part.
    struct Tail {
        bool fHasSign = false;  ///< the decimal sign
        std::size_t fDigits = 0;
        std::string_view fSuffix;  ///< an exponent or a percent sign

        bool IsPercentage() const { return fSuffix == "%"; }
    };

    struct Column {
        int fTexts = 0;
        int fNumbers = 0;
        bool fHasValueLabels = false;
        Tail fTail;         ///< of each part the longest
        Tail fPercentages;  ///< the same of percentages
    };

    static bool IsSmall(const document::Text& content, const Tail& tail);
    static Tail TailOf(std::string_view words);
    void Add(Column& column, const document::Text& content);
    const Column& At(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

    std::vector<Column> fvColumns;
    bool fHasSmallFigures = false;
};

}  // namespace hierfit::report
