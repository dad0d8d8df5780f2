#pragma once

#include <cstdint>
#include <vector>

#include "report/layout/GridParts.h"
#include "report/layout/LeafOrder.h"

namespace hierfit::report {

/// One side of a table: its lines are the rows, or the columns, of the grid. A line is a combination of categories of
/// the side's dimensions that has a cell; with no dimension on the side, all cells are in one line. It points into the
/// table, which must outlive it.
class Axis {
  public:
    /// What of the dimensions' names and labels stands in the headers.
    enum class Shows {
        Named,   ///< names as levels above the labels
        Labels,  ///< names in `MakeCorner`
        All      ///< the same with those that are hidden
    };

    /// The dimensions, outermost first, as indices in the table.
    Axis(const document::Table& table, const std::vector<std::size_t>& dimensions, Shows shows);

    int CountLines() const { return static_cast<int>(fvFirstCells.size()); }
    int CountLevels() const { return fLevels; }

    /// The line of a cell, both by index.
    std::size_t LineOf(std::size_t cell) const { return fvLines[cell]; }

    /// The header cells by first line, then level; their notes are still to be lettered.
    std::vector<HeaderCell> MakeHeaders() const;

    /// The names above the levels, by level.
    std::vector<CornerCell> MakeCorner() const;

  private:
    using Index = std::uint32_t;  ///< of a cell, a place or a line: there are as many as cells, and no more than fit

    struct Part {
        const document::Dimension* fpDimension;
        LeafOrder fOrder;
        std::vector<Index> fvPlaces;  ///< for each cell, its place in the dimension
        int fFirstLevel = 0;
        int fNameLevels = 0;   ///< levels of the dimension's name: 0 or 1
        int fLabelLevels = 0;  ///< 0 where its labels are hidden
    };
    struct Drawing;

    void AddPart(const document::Table& table, std::size_t index);
    void SetLevels(Part& part);
    std::vector<Index> SortCells(std::size_t count) const;
    void SetLines(const std::vector<Index>& sortedCells);
    static void SortByPlace(std::vector<Index>& cells, const Part& part);
    std::size_t FindFirstDifference(std::size_t cell, std::size_t other) const;
    static void DrawName(Drawing& drawing, const Part& part, bool isNew);
    static void DrawLabels(Drawing& drawing, const Part& part, const Leaf& leaf, std::size_t sharedGroups);
    void DrawLine(Drawing& drawing, std::size_t cell, std::size_t before) const;

    Shows fShows;
    std::vector<Part> fvParts;
    std::vector<Index> fvLines;             ///< for each cell
    std::vector<std::size_t> fvFirstCells;  ///< for each line
    int fLevels = 0;
};

}  // namespace hierfit::report
