#include "hierfit/estimates/HFITParamEstimatesOutput.h"
#include "hierfit/tables/MessageKeys.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

/// Whether conditions of the fit leave the model without common subjects.
bool HasNoSubjects(const HFITOutputStats& stats) { return stats.HasWarning(kGLMM_C8) || stats.HasWarning(kGLMM_C9); }

void CountRow(BpGroup& group, const char* name, int count) { NumberCell(group, name, count, BpProcedure::Count()); }

}  // namespace

void HFITParamEstimatesOutput::CovarianceParametersSummary() {
    if (!fpStats->GetModelDiagnostics()) return;
    const ModelDiagnostics& diagnostics = *fpStats->GetModelDiagnostics();
    const bool commonSubjectsHidden = HasNoSubjects(*fpStats);

    BpHeading heading = fProcedure->Heading(Translated("Covariance Parameters"));
    SummaryTable(heading, diagnostics, commonSubjectsHidden);
    const ParamCollect* collect = fpStats->GetParamCollect();
    if (!collect) return;
    ResidualEffect(heading, collect->fvRepeatedParamEstim);
    const int nBlocks = static_cast<int>(collect->fvRandomParamEstim.size());
    for (const RandomParamBlock& entry : collect->fvRandomParamEstim) {
        RandomEffect(heading, entry.fvGroups, entry.fBlock, nBlocks);
    }
}

void HFITParamEstimatesOutput::SummaryTable(BpHeading& heading, const ModelDiagnostics& diagnostics,
                                            bool commonSubjectsHidden) {
    BpPivotTable table =
        heading.PivotTable(Translated("Covariance Parameters Summary"), Plain("CovarianceParametersSummary"), true);
    if (!commonSubjectsHidden) table.Caption(Translated("Common Subjects are based on ..."));
    BpDimension content = table.Dimension(Translated("Content"), BpSort::AsIssued);
    content.Position(BpPlace::Rows, 1, true, false);

    BpGroup parameters = content.Group(Translated("Covariance Parameters"), true, BpSort::AsIssued);
    CountRow(parameters, "Residual Effect", diagnostics.fNumOfCovParamOfRepeated);
    CountRow(parameters, "Random Effects", diagnostics.fNumOfCovParamOfRandom);
    BpGroup columns = content.Group(Translated("Design Matrix Columns"), true, BpSort::AsIssued);
    CountRow(columns, "Fixed Effects", diagnostics.fNumOfColsOfFixed);
    BpCategory random = NumberCell(columns, "Random Effects", diagnostics.fNumOfColsOfRandom, BpProcedure::Count());
    if (commonSubjectsHidden) return;
    random.CellNote(BpAnnotation(Translated("Number of common subject ...")));
    CountRow(content, "Common Subjects", diagnostics.fNumOfCommonSubjects);
}

void HFITParamEstimatesOutput::ResidualEffect(BpHeading& heading, const std::vector<ParamGroup>& paramEstimVect) {
    const bool hasGroups = !fpBuildSettings->fvResidualGroupSpec.empty();
    if (hasGroups ? paramEstimVect.empty() : paramEstimVect.size() != 1) {
        Diagnose("table \"Residual Effect\" is left out: there are " + std::to_string(paramEstimVect.size()) +
                 " sets of residual parameters, not one" + (hasGroups ? " or more" : ""));
        return;
    }
    BpPivotTable table = heading.PivotTable(Translated("Residual Effect"), Plain("ResidualEffect"), true);
    table.Caption(ResidualCaption());
    BpDimension rows = table.Dimension(Translated("Residual Effect"), BpSort::AsIssued);
    rows.Position(BpPlace::Rows, 1, false, false);
    if (!hasGroups) {
        BpDimension columns = table.Dimension(Plain("Random Effect Covariance Column"), BpSort::AsIssued);
        columns.Position(BpPlace::Columns, 1, true, false);
        CovarianceParameterRows(rows, columns, paramEstimVect.front(), kResidualBlock);
        return;
    }
    BpDimension grouping = table.Dimension(Translated("Grouping"), BpSort::AsIssued);
    grouping.Position(BpPlace::Rows, 2, false, false);
    BpDimension columns = table.Dimension(Plain("Residual Effect Covariance Column"), BpSort::AsIssued);
    columns.Position(BpPlace::Columns, 1, true, false);
    for (const ParamGroup& group : paramEstimVect) {
        grouping.Category(GroupingCell(group.fFiledData, *fDataSource));
        CovarianceParameterRows(rows, columns, group, kResidualBlock);
    }
}

BpComposite HFITParamEstimatesOutput::ResidualCaption() const {
    const bool noSubject = HasNoSubjects(*fpStats);
    BpComposite caption(
        noSubject ? "Covariance Structure ^1 ..." : "Covariance Structure ^1 Subject Specification ^2 ...", true);
    caption.Add(Plain(fpStats->CovarianceText(fpBuildSettings->fResidualCovarianceType, true)));
    if (!noSubject) caption.Add(SubjectSpecCell(fpBuildSettings->fResidualSubjectSpec));
    WarningSublist(caption);
    caption.Finish();
    return caption;
}

BpString HFITParamEstimatesOutput::SubjectSpecCell(const EffectStruct& subjectSpec, bool translate) const {
    if (subjectSpec.fvFieldNames.empty()) return Plain("(None)");
    std::vector<std::string> labels;
    EffectLabels({subjectSpec}, labels);
    return labels.size() == 1 ? BpString(labels.front(), translate) : Plain("(None)");
}

void HFITParamEstimatesOutput::WarningSublist(BpComposite& caption) const {
    const bool isOrdinal = fpBuildSettings->fDistribution == DistributionOfTarget::ORDINAL;
    std::vector<const char*> keys;
    if (fpStats->HasWarning(kGLMM_C18)) keys.push_back(kGLMM_C18);
    if (!isOrdinal && fpStats->HasWarning(kGLMM_C23)) keys.push_back(kGLMM_C23);
    if (fpStats->HasWarning(kGLMM_C28)) keys.push_back(kGLMM_C28);
    if (keys.empty()) return;
    caption.Sublist();
    for (const char* key : keys) caption.Add(Translated(key));
    caption.EndSublist();
}

}  // namespace hierfit
