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
    for (const document::Dimension& dimension : fTable.fvDimensions) {
        const std::size_t index = static_cast<std::size_t>(dimension.fIndex) - 1;
        if (dimension.fSide == document::Side::Rows && index < fvIsTaken.size()) fvIsTaken[index] = true;
    }
    auto next = fvIsTaken.begin();
    for (document::Dimension& dimension : fTable.fvDimensions) {
        if (dimension.fPositioned) continue;
        next = std::find(next, fvIsTaken.end(), false) + 1;
        dimension.fIndex = static_cast<int>(next - fvIsTaken.begin());
    }
}

DimensionBuilder& TableBuilder::AddDimension(const document::Text& name, int sort) {
    fvIsTaken.push_back(false);
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

}  // namespace hierfit::pivot
