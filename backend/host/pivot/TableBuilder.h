#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "host/document/Table.h"
#include "host/pivot/CellIndex.h"
#include "host/pivot/DimensionBuilder.h"

namespace hierfit::pivot {

/// Fills one table of the output document, which owns the table and must outlive the builder. All handles on the table
/// and its parts share the builder; when the last is gone, dimensions without a place get theirs.
class TableBuilder {
  public:
    explicit TableBuilder(document::Table& table) : fTable(table), fPlaces(table.fvCells) {}
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
    void FollowDimensions();
    void WidenCells();
    void TellOverwriting();
    document::CellPlace ListCurrent() const;

    document::Table& fTable;
    std::deque<DimensionBuilder> fDimensions;
    std::vector<bool> fvIsTaken;  ///< the indices of rows from 1, for the destructor, which must take no memory
    CellIndex fPlaces;
    std::optional<std::size_t> fLastCell;
    bool fHasOverwritten = false;
};

}  // namespace hierfit::pivot
