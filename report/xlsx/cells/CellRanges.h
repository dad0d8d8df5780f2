#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace hierfit::report::xlsx {

/// Cells of a sheet by their names. Those below one another in a column are told as one range.
class CellRanges {
  public:
    /// Rows and columns count from 0; rows never go back.
    void Add(int row, int column);

    /// "C5, D7:D9"; nothing where there are none.
    std::string Spell() const;

  private:
    struct Range {
        int fColumn;
        int fFirstRow;
        int fLastRow;
    };

    std::vector<Range> fvRanges;
    std::unordered_map<int, std::size_t> fLast;  ///< of a column, by its number
};

}  // namespace hierfit::report::xlsx
