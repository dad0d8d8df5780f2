#pragma once

#include <deque>
#include <optional>
#include <unordered_set>
#include <vector>

#include "host/document/Table.h"
#include "host/pivot/DimensionBuilder.h"

namespace hierfit::pivot {

/// Fills one table of the output document, which owns the table and must outlive the builder. All handles on the table
/// and its parts share the builder; when the last is gone, dimensions without a place get theirs.
class TableBuilder {
  public:
    explicit TableBuilder(document::Table& table) : fTable(table), fPlaces(0, PlaceHash{table}, SamePlace{table}) {}
    ~TableBuilder();
    TableBuilder(const TableBuilder&) = delete;
    TableBuilder& operator=(const TableBuilder&) = delete;

    document::Table& GetTable() { return fTable; }

    DimensionBuilder& AddDimension(const document::Text& name, int sort);

    /// Writes at the current category of every dimension, in place of what is there already; what differed is told
    /// once a table.
    void WriteCell(const document::Text& content);

    /// The cell written since `ForgetLastCell`; null when none was.
    document::Cell* GetLastCell();
    void ForgetLastCell() { fLastCell.reset(); }

  private:
    // Cells by their places: indices of cells in the table, which are found by the ids that they stand at.
    using Ids = document::CellPlace;
    struct PlaceHash {
        using is_transparent = void;
        const document::Table& fTable;
        std::size_t operator()(const Ids& ids) const;
        std::size_t operator()(std::size_t cell) const { return (*this)(fTable.fvCells[cell].fvAt); }
    };
    struct SamePlace {
        using is_transparent = void;
        const document::Table& fTable;
        bool operator()(std::size_t a, std::size_t b) const { return a == b; }
        bool operator()(const Ids& ids, std::size_t cell) const { return ids == fTable.fvCells[cell].fvAt; }
        bool operator()(std::size_t cell, const Ids& ids) const { return ids == fTable.fvCells[cell].fvAt; }
    };

    void FollowDimensions();
    void WidenCells();
    void TellOverwriting();
    Ids ListCurrent() const;
    int FindFreeIndex() const;

    document::Table& fTable;
    std::deque<DimensionBuilder> fDimensions;
    std::unordered_set<std::size_t, PlaceHash, SamePlace> fPlaces;
    std::optional<std::size_t> fLastCell;
    bool fHasOverwritten = false;
};

}  // namespace hierfit::pivot
