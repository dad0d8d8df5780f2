#pragma once

#include <memory>

#include "host/BpCellText.h"
#include "host/Export.h"

namespace hierfit {

namespace pivot {
class TableBuilder;
class DimensionBuilder;
class GroupBuilder;
class HeadingBuilder;
}  // namespace pivot

/// Order of the members of a dimension or group.
enum class BpSort { Ascending = 0, Descending = 1, AsIssued = 2 };

/// The side of a table on which a dimension stands.
enum class BpPlace { Rows = 0, Columns = 1 };

/// One category of a dimension. All classes of this file are shared handles, copied by value; the output document owns
/// what they stand for.
class HIERFIT_EXPORT BpCategory {
  public:
    /// Writes a cell at the current category of every dimension of the table. The last cell at a place wins.
    void Cell(const BpCellText& content);

    /// A note on the cell written since the table's last `Category` call; with none written, on this category.
    void CellNote(const BpAnnotation& note);

    /// A note on this category.
    void Note(const BpAnnotation& note);

  private:
    friend class BpGroup;
    BpCategory(std::shared_ptr<pivot::DimensionBuilder> dimension, int id)
        : fpDimension(std::move(dimension)), fId(id) {}

    std::shared_ptr<pivot::DimensionBuilder> fpDimension;
    int fId;
};

/// A group of categories within a dimension, or a dimension itself.
class HIERFIT_EXPORT BpGroup {
  public:
    /// The nested group with that text; it is made when there is none yet. The flag is true at every call.
    BpGroup Group(const BpCellText& label, bool flag, BpSort sort);

    /// The category with that text, which becomes the current one of its dimension; it is made when there is none yet.
    BpCategory Category(const BpCellText& label);

  protected:
    friend class BpPivotTable;
    BpGroup(std::shared_ptr<pivot::DimensionBuilder> dimension, std::shared_ptr<pivot::GroupBuilder> group)
        : fpDimension(std::move(dimension)), fpGroup(std::move(group)) {}

    std::shared_ptr<pivot::DimensionBuilder> fpDimension;
    std::shared_ptr<pivot::GroupBuilder> fpGroup;
};

/// A dimension of a table.
class HIERFIT_EXPORT BpDimension : public BpGroup {
  public:
    /// Puts the dimension on a side; the highest index there is outermost, 1 innermost. The flags hide the dimension's
    /// name and its categories' labels.
    void Position(BpPlace place, int index, bool hideName, bool hideLabels);

  private:
    friend class BpPivotTable;
    using BpGroup::BpGroup;
};

/// A pivot table. It is complete when its handles are gone.
class HIERFIT_EXPORT BpPivotTable {
  public:
    /// A new dimension. One that is never positioned goes to the lowest free index on the rows.
    BpDimension Dimension(const BpCellText& name, BpSort sort);

    void Caption(const BpCellText& text);
    void Note(const BpAnnotation& note);

    /// Least width of a data column, in pixels of 1/96 inch.
    void MinDataColumnWidth(int pixels);

  private:
    friend class BpHeading;
    explicit BpPivotTable(std::shared_ptr<pivot::TableBuilder> table) : fpTable(std::move(table)) {}

    std::shared_ptr<pivot::TableBuilder> fpTable;
};

/// A heading of the output. Charts and messages go under the innermost heading that still has a handle.
class HIERFIT_EXPORT BpHeading {
  public:
    /// A heading nested in this one.
    BpHeading Heading(const BpCellText& title);

    /// A table under this heading. The subtype names the kind of table and is not translated.
    BpPivotTable PivotTable(const BpCellText& title, const BpString& subtype, bool flag);

  protected:
    explicit BpHeading(std::shared_ptr<pivot::HeadingBuilder> heading) : fpHeading(std::move(heading)) {}

    std::shared_ptr<pivot::HeadingBuilder> fpHeading;
};

}  // namespace hierfit
