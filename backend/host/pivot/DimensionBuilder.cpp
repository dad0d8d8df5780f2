#include "host/pivot/DimensionBuilder.h"

namespace hierfit::pivot {

void DimensionBuilder::Position(document::Side side, int index, bool hideName, bool hideLabels) {
    fpDimension->fPositioned = true;
    fpDimension->fSide = side;
    fpDimension->fIndex = index;
    fpDimension->fHideName = hideName;
    fpDimension->fHideLabels = hideLabels;
}

int DimensionBuilder::Select(GroupBuilder& group, const document::Text& label) {
    document::Category& category = group.FindCategory(label, fNextId);
    if (fvCategories.size() < static_cast<std::size_t>(fNextId)) fvCategories.push_back(&category);
    fCurrent = category.fId;
    return fCurrent;
}

void DimensionBuilder::AddNote(int id, const document::Text& note) {
    fvCategories[static_cast<std::size_t>(id)]->fvNotes.push_back(note);
}

void DimensionBuilder::SetDimension(document::Dimension& dimension) {
    fpDimension = &dimension;
    fMembers.SetMembers(dimension.fMembers);
}

}  // namespace hierfit::pivot
