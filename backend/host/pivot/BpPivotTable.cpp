#include "host/BpPivotTable.h"

#include "host/pivot/TableBuilder.h"

namespace hierfit {

void BpCategory::Cell(const BpCellText& content) { fpDimension->GetTable().WriteCell(*content.GetText()); }

void BpCategory::CellNote(const BpAnnotation& note) {
    document::Cell* cell = fpDimension->GetTable().GetLastCell();
    if (!cell) return Note(note);
    cell->fvNotes.push_back(*note.GetText().GetText());
}

void BpCategory::Note(const BpAnnotation& note) { fpDimension->AddNote(fId, *note.GetText().GetText()); }

BpGroup BpGroup::Group(const BpCellText& label, bool flag, BpSort sort) {
    pivot::GroupBuilder& group = fpGroup->FindGroup(*label.GetText(), flag, static_cast<int>(sort));
    return {fpDimension, std::shared_ptr<pivot::GroupBuilder>(fpDimension, &group)};
}

BpCategory BpGroup::Category(const BpCellText& label) {
    fpDimension->GetTable().ForgetLastCell();
    return {fpDimension, fpDimension->Select(*fpGroup, *label.GetText())};
}

void BpDimension::Position(BpPlace place, int index, bool hideName, bool hideLabels) {
    const document::Side side = place == BpPlace::Columns ? document::Side::Columns : document::Side::Rows;
    fpDimension->Position(side, index, hideName, hideLabels);
}

BpDimension BpPivotTable::Dimension(const BpCellText& name, BpSort sort) {
    pivot::DimensionBuilder& dimension = fpTable->AddDimension(*name.GetText(), static_cast<int>(sort));
    return {std::shared_ptr<pivot::DimensionBuilder>(fpTable, &dimension),
            std::shared_ptr<pivot::GroupBuilder>(fpTable, &dimension.GetMembers())};
}

void BpPivotTable::Caption(const BpCellText& text) { fpTable->GetTable().fvCaptions.push_back(*text.GetText()); }

void BpPivotTable::Note(const BpAnnotation& note) { fpTable->GetTable().fvNotes.push_back(*note.GetText().GetText()); }

void BpPivotTable::MinDataColumnWidth(int pixels) { fpTable->GetTable().fMinDataColumnWidth = pixels; }

}  // namespace hierfit
