#pragma once

#include <vector>

#include "host/document/Table.h"
#include "host/pivot/GroupBuilder.h"

namespace hierfit::pivot {

class TableBuilder;

/// Fills one dimension of a table and knows its current category. The table's builder owns it; the dimension itself
/// stands in the output document, which must outlive it.
class DimensionBuilder {
  public:
    DimensionBuilder(TableBuilder& table, document::Dimension& dimension)
        : fTable(table), fpDimension(&dimension), fMembers(dimension.fMembers) {}

    TableBuilder& GetTable() { return fTable; }

    /// The dimension as a group of its own.
    GroupBuilder& GetMembers() { return fMembers; }

    void Position(document::Side side, int index, bool hideName, bool hideLabels);

    /// Makes the category of a group that has that label the current one; the result is its id.
    int Select(GroupBuilder& group, const document::Text& label);

    /// The id of the current category; `document::kNoCategory` before the first.
    int GetCurrent() const { return fCurrent; }

    /// A note on a category by its id.
    void AddNote(int id, const document::Text& note);

    /// Tells that the dimension has moved within the document.
    void SetDimension(document::Dimension& dimension);

  private:
    TableBuilder& fTable;
    document::Dimension* fpDimension;
    GroupBuilder fMembers;
    std::vector<document::Category*> fvCategories;  ///< by id
    int fNextId = 0;
    int fCurrent = document::kNoCategory;
};

}  // namespace hierfit::pivot
