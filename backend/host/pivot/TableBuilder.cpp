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
    fPlaces.clear();
    for (std::size_t cell = 0; cell < fTable.fvCells.size(); ++cell) {
        fTable.fvCells[cell].fvAt.push_back(document::kNoCategory);
        fPlaces.insert(cell);
    }
}

void TableBuilder::WriteCell(const document::Text& content) {
    Ids ids = ListCurrent();
    if (const auto found = fPlaces.find(ids); found != fPlaces.end()) {
        fLastCell = *found;
        document::Cell& cell = fTable.fvCells[*found];
        if (cell.fContent != content) TellOverwriting();
        cell.fContent = content;
        cell.fvNotes.clear();
        return;
    }
    fLastCell = fTable.fvCells.size();
    fTable.fvCells.push_back({std::move(ids), content, {}});
    fPlaces.insert(*fLastCell);
}

void TableBuilder::TellOverwriting() {
    if (std::exchange(fHasOverwritten, true)) return;
    Diagnose("table \"" + unicode::Excerpt(fTable.fTitle.fWords) +
             "\": rows or columns of the same names fall together, and the last of them is shown");
}

document::Cell* TableBuilder::GetLastCell() { return fLastCell ? &fTable.fvCells[*fLastCell] : nullptr; }

TableBuilder::Ids TableBuilder::ListCurrent() const {
    Ids ids;
    for (const DimensionBuilder& dimension : fDimensions) ids.push_back(dimension.GetCurrent());
    return ids;
}

int TableBuilder::FindFreeIndex() const {
    std::vector<bool> isTaken(fTable.fvDimensions.size() + 2);
    for (const document::Dimension& dimension : fTable.fvDimensions) {
        const auto index = static_cast<std::size_t>(dimension.fIndex);
        if (dimension.fSide == document::Side::Rows && index < isTaken.size()) isTaken[index] = true;
    }
    return static_cast<int>(std::find(isTaken.begin() + 1, isTaken.end(), false) - isTaken.begin());
}

std::size_t TableBuilder::PlaceHash::operator()(const Ids& ids) const {
    std::size_t hash = ids.size();
    for (const int id : ids) hash = (hash ^ static_cast<std::size_t>(id + 1)) * 0x9E3779B97F4A7C15u + (hash >> 29);
    return hash;
}

}  // namespace hierfit::pivot
