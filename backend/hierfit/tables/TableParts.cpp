#include "hierfit/tables/TableParts.h"

#include "host/unicode/Utf8.h"

namespace hierfit {

namespace {

constexpr std::size_t kPieceLength = 255;

BpVariable VariableInText(const KEST_DataSource& data, int index) {
    return BpVariable(data.GetVariable(index), BpShow::InText);
}

}  // namespace

BpNumber SigDigitNumber(double number) { return BpNumber(number, BpProcedure::SigDigit(number)); }

BpNumber CountNumber(double number) { return BpNumber(number, BpProcedure::Count()); }

BpComposite Composite(const std::string& pattern, const BpCellText& value) {
    BpComposite composite(pattern, true);
    composite.Add(value);
    composite.Finish();
    return composite;
}

BpComposite TwoLines(const BpCellText& first, const BpCellText& second) {
    BpComposite lines(kLines, true);
    lines.Sublist();
    lines.Add(first);
    lines.Add(second);
    lines.EndSublist();
    lines.Finish();
    return lines;
}

BpCategory NumberCell(BpGroup& group, const char* name, double number, BpFormatSpec format) {
    BpCategory category = group.Category(Translated(name));
    category.Cell(BpNumber(number, format));
    return category;
}

BpDimension StatisticsDimension(BpPivotTable& table) {
    BpDimension statistics = table.Dimension(Translated("Statistics"), BpSort::AsIssued);
    statistics.Position(BpPlace::Columns, 1, true, false);
    return statistics;
}

BpComposite TargetOnlyNote(const BuildSettings& settings, const KEST_DataSource& data) {
    return Composite("Target ^1", VariableInText(data, settings.fTargetIndex));
}

BpComposite TargetNote(const BuildSettings& settings, const KEST_DataSource& data) {
    if (!settings.fUseTrials) return TargetOnlyNote(settings, data);
    BpComposite note("Target ^1/^2", true);
    note.Add(VariableInText(data, settings.fTargetIndex));
    if (settings.fTrialsIndex < 0) {
        note.Add(CountNumber(settings.fTrialsValue));
    } else {
        note.Add(VariableInText(data, settings.fTrialsIndex));
    }
    note.Finish();
    return note;
}

BpComposite DistributionCaption(const HFITOutputStats& stats, const BuildSettings& settings, bool translateLink) {
    const bool hasParameter = settings.fLinkParam != kSystemMissing;
    BpComposite caption(hasParameter ? "Probability Distribution ^1, Link Function ^2 with ^3 ..."
                                     : "Probability Distribution ^1, Link Function ^2 ...",
                        true);
    caption.Add(Plain(stats.DistributionText(settings.fDistribution, true)));
    caption.Add(BpString(stats.LinkText(settings.fLink, settings.fDistribution, true), translateLink));
    if (hasParameter) caption.Add(SigDigitNumber(settings.fLinkParam));
    caption.Finish();
    return caption;
}

BpComposite ConfidenceName(const char* pattern, const BuildSettings& settings) {
    return Composite(pattern, SigDigitNumber(settings.fConfidenceLevel * 100));
}

BpGroup ConfidenceGroup(BpGroup& statistics, const BpComposite& name) {
    return statistics.Group(name, true, BpSort::AsIssued);
}

BpComposite GroupingCell(const SubjectData& segment, const KEST_DataSource& data) {
    BpComposite cell(segment.fSubjectIndices.size() == 1 ? "EffectVar1" : "EffectVar2", true);
    cell.Sublist();
    for (std::size_t i = 0; i < segment.fSubjectIndices.size(); ++i) {
        const KEST_Variable* variable = data.GetVariable(segment.fSubjectIndices[i]);
        cell.Add(BpVariable(variable, BpShow::AsHeader));
        cell.Add(BpDataValue(variable, segment.fSubjectValues[i].GetObsValue(), BpPreference::AsHeader));
    }
    cell.EndSublist();
    cell.Finish();
    return cell;
}

std::unique_ptr<BpCellText> LabelCell(const std::string& label) {
    std::string_view rest = label;
    std::string_view piece = unicode::FirstCharacters(rest, kPieceLength);
    if (piece.size() == rest.size()) return std::make_unique<BpString>(label, false);
    auto cell = std::make_unique<BpComposite>("[:^1:]1", true);
    cell->Sublist();
    for (; !rest.empty(); piece = unicode::FirstCharacters(rest, kPieceLength)) {
        cell->Add(Plain(std::string(piece)));
        rest.remove_prefix(piece.size());
    }
    cell->EndSublist();
    cell->Finish();
    return cell;
}

}  // namespace hierfit
