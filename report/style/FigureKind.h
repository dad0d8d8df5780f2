#pragma once

#include <optional>
#include <unordered_map>

#include "host/document/Table.h"

namespace hierfit::report::style {

/// What a figure is, which decides how a style writes it.
enum class FigureKind : unsigned char {
    Other,      ///< shown in its print format
    PValue,     ///< a significance
    Statistic,  ///< F, t or Z
    DegreesOfFreedom,
    Estimate,     ///< a coefficient, a mean, an error or a bound
    Correlation,  ///< the same of a covariance parameter that is a correlation
};

/// Tells the kinds of a table's cells by its subtype and the source text of their innermost column's label. Labels that
/// come from a document, a slope named "t", never decide. It borrows the table.
class FigureKinds {
  public:
    explicit FigureKinds(const document::Table& table);

    FigureKind Of(const document::Cell& cell) const;

  private:
    std::optional<std::size_t> fColumns;  ///< the innermost dimension of the columns
    std::optional<std::size_t> fRows;     ///< that of the rows, where some of its categories are correlations
    std::unordered_map<int, FigureKind> fOfColumns;
    std::unordered_map<int, FigureKind> fOfRows;
    FigureKind fOfAll = FigureKind::Other;  ///< of a table that is a matrix
};

}  // namespace hierfit::report::style
