#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report {

/// For each column its labels from the outermost inwards, with ", " between them; blank where it has none. For formats
/// that know no cells over several columns.
std::vector<std::string> JoinColumnNames(const Grid& grid);

/// For each level of row headers its name: that of the dimension, with 2, 3, ... behind it for the deeper levels of
/// one. Blank where the dimension's name is hidden.
std::vector<std::string> NameRowLevels(const Grid& grid);

/// Makes names differ: those that stand already get " (2)", " (3)", ... behind them.
void MakeUnique(std::vector<std::string>& names);

/// The labels of rows, each spelt out. For formats that know no cells over several rows.
class RowLabels {
  public:
    explicit RowLabels(const Grid& grid);

    /// Goes to the next row, at first to the first. Its headers by level: null where a row is less deep.
    const std::vector<const HeaderCell*>& Next();

  private:
    const Grid& fGrid;
    std::size_t fNext = 0;  ///< header
    int fRow = 0;
    std::vector<const HeaderCell*> fvLabels;
};

}  // namespace hierfit::report
