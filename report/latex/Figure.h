#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace hierfit::report::latex {

/// A number taken apart. It points into its words.
struct Figure {
    char fComparator = '\0';  ///< '<' or '>'; none is 0
    bool fIsNegative = false;
    std::string_view fInteger;  ///< digits; empty where none stand before the decimal sign
    std::string_view fDecimals;
    bool fHasPoint = false;
    int fExponent = 0;
    bool fHasExponent = false;
    bool fIsPercentage = false;
};

/// A number as it is shown, with "-" or U+2212; nothing for other words.
std::optional<Figure> ReadFigure(std::string_view words);

/// What the figures of a column need so that their decimal signs stand below one another (an `S` column of siunitx).
class FigureColumn {
  public:
    void Add(const Figure& figure);

    /// Room for what stands behind the figures, besides percent signs; the widest counts.
    void AddMarks(std::string_view marks);

    /// "S[table-format=-2.3]"
    std::string Spell() const { return SpellWith(!fHasZero && fLacksInteger); }

    /// In em of a font whose digits are 0.64 em wide.
    double Width() const;

    /// Appends a figure as a cell, with markup behind it. `edge` is what the last column of a table ends in, else
    /// empty.
    void AppendCell(std::string& out, const Figure& figure, std::string_view behind, std::string_view edge) const;

  private:
    std::string SpellWith(bool hidesZero) const;

    bool fHasComparator = false;
    bool fHasSign = false;
    bool fHasPercent = false;
    bool fHasZero = false;       ///< some show a zero alone before the decimal sign
    bool fLacksInteger = false;  ///< some show nothing there
    std::size_t fInteger = 1;
    std::size_t fDecimals = 0;
    std::size_t fExponent = 0;  ///< digits
    bool fHasNegativeExponent = false;
    std::string fMarks;
};

}  // namespace hierfit::report::latex
