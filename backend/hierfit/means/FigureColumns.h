#pragma once

#include <string>
#include <vector>

#include "hierfit/store/Emmeans.h"
#include "hierfit/tables/TableParts.h"

namespace hierfit {

/// A column of figures in a table of estimated means.
struct FigureColumn {
    const char* fName;
    const Coordinates* fpFigures;
    BpFormatSpec fFormat;
};

/// The statistics of a table of estimated means, written row by row: some columns, then the bounds of their confidence
/// interval. The figures must outlive it. A column that is too short has no cell in the rows behind its end.
class FigureColumns {
  public:
    /// Makes the dimension of the statistics. `sysMis` stands for a figure that is missing.
    FigureColumns(BpPivotTable& table, const BuildSettings& settings, double sysMis, std::vector<FigureColumn> columns,
                  const Coordinates& lower, const Coordinates& upper);

    void Row(std::size_t row);

    /// Tells the host which columns do not have as many figures as the named table has rows.
    void Check(const std::string& table, std::size_t nRows) const;

  private:
    void Cells(BpGroup& group, const std::vector<FigureColumn>& columns, std::size_t row) const;
    double Figure(const std::string& text) const;

    BpDimension fStatistics;
    BpComposite fConfidence;
    double fSysMis;
    std::vector<FigureColumn> fvColumns;
    std::vector<FigureColumn> fvBounds;
};

}  // namespace hierfit
