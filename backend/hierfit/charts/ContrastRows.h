#pragma once

#include <cstddef>
#include <string>

#include "hierfit/store/Emmeans.h"

namespace hierfit {

/// A block's contrasts as the charts read them. The last two factor columns name the two levels of a contrast; the
/// first two of those before them, where there are any, name the panel. It borrows the columns.
class ContrastRows {
  public:
    /// There must be two factor columns at least.
    explicit ContrastRows(const ContrastData& contrasts) : fpFactors(&contrasts.fvFactorCoords) {}

    /// The column of the compared level, and of the one that it is compared with.
    const Coordinates& Compared() const { return (*fpFactors)[fpFactors->size() - 2]; }
    const Coordinates& Reference() const { return fpFactors->back(); }

    bool HasPanel(std::size_t i) const { return fpFactors->size() > i + 2; }

    /// The field of the i-th panel variable, 0 or 1; empty without one.
    std::string PanelField(std::size_t i) const { return HasPanel(i) ? (*fpFactors)[i].fField : ""; }

    /// The level of the i-th panel variable in a row; empty without one.
    std::string PanelLevel(std::size_t i, std::size_t row) const {
        return HasPanel(i) && row < (*fpFactors)[i].fvValues.size() ? (*fpFactors)[i].fvValues[row] : "";
    }

  private:
    const std::vector<Coordinates>* fpFactors;
};

}  // namespace hierfit
