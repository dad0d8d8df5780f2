#include "host/pivot/TableBuilder.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::pivot {

// When the list of dimensions grows, the nodes below the dimensions must stay where they are.
static_assert(std::is_nothrow_move_constructible_v<document::Dimension>);

TableBuilder::~TableBuilder() {
    for (document::Dimension& dimension : fTable.fvDimensions) {
        if (!dimension.fPositioned) dimension.fIndex = FindFreeIndex();
    }
}

DimensionBuilder& TableBuilder::AddDimension(const document::Text& name, int sort) {
    document::Dimension dimension{};
    dimension.fName = name;
    dimension.fSort = sort;
    const document::Dimension* before = fTable.fvDimensions.data();
    fTable.fvDimensions.push_back(std::move(dimension));
    if (fTable.fvDimensions.data() != before) FollowDimensions();
    WidenCells();
    return fDimensions.emplace_back(*this, fTable.fvDimensions.back());
}

void TableBuilder::FollowDimensions() {
    for (std::size_t index = 0; index < fDimensions.size(); ++index) {
        fDimensions[index].SetDimension(fTable.fvDimensions[index]);
    }
}

void TableBuilder::WidenCells() {
    for (document::Cell& cell : fTable.fvCells) cell.fvAt.push_back(document::kNoCategory);
    fPlaces.Rebuild();
}

void TableBuilder::WriteCell(const document::Text& content) {
    document::CellPlace place = ListCurrent();
    if (const auto found = fPlaces.Find(place)) {
        fLastCell = *found;
        document::Cell& cell = fTable.fvCells[*found];
        if (cell.fContent != content) TellOverwriting();
        cell.fContent = content;
        cell.fvNotes.clear();
        return;
    }
    fLastCell = fTable.fvCells.size();
    fTable.fvCells.push_back({std::move(place), content, {}});
    fPlaces.AddLast();
}

void TableBuilder::TellOverwriting() {
    if (std::exchange(fHasOverwritten, true)) return;
    Diagnose("table \"" + unicode::Excerpt(fTable.fTitle.fWords) +
             "\": rows or columns of the same names fall together, and the last of them is shown");
}

document::Cell* TableBuilder::GetLastCell() { return fLastCell ? &fTable.fvCells[*fLastCell] : nullptr; }

document::CellPlace TableBuilder::ListCurrent() const {
    document::CellPlace place;
    for (const DimensionBuilder& dimension : fDimensions) place.push_back(dimension.GetCurrent());
    return place;
}

// Dimensions are few, and the destructor must take no memory.
int TableBuilder::FindFreeIndex() const {
    int index = 1;
    const auto isAt = [&](const document::Dimension& dimension) {
        return dimension.fSide == document::Side::Rows && dimension.fIndex == index;
    };
    while (std::ranges::any_of(fTable.fvDimensions, isAt)) ++index;
    return index;
}

}  // namespace hierfit::pivot
