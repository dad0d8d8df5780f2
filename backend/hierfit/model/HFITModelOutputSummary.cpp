#include "hierfit/model/HFITModelOutput.h"
#include "hierfit/tables/TableParts.h"

namespace hierfit {

namespace {

void TargetRows(BpDimension& content, const BuildSettings& settings, const KEST_DataSource& data) {
    const BpVariable target(data.GetVariable(settings.fTargetIndex), BpShow::AsHeader);
    if (!settings.fUseTrials) {
        content.Category(Translated("Target")).Cell(target);
        return;
    }
    BpGroup group = content.Group(Translated("Target"), true, BpSort::AsIssued);
    group.Category(Translated("Events")).Cell(target);
    BpCategory trials = group.Category(Translated("Trials"));
    if (settings.fTrialsIndex >= 0) {
        trials.Cell(BpVariable(data.GetVariable(settings.fTrialsIndex), BpShow::AsHeader));
    } else {
        trials.Cell(SigDigitNumber(settings.fTrialsValue));
    }
}

void MeasurementLevelRow(BpDimension& content, int distribution) {
    if (distribution == DistributionOfTarget::NOMINAL) {
        content.Category(Translated("Measurement Level")).Cell(Translated("Nominal"));
    } else if (distribution == DistributionOfTarget::ORDINAL) {
        content.Category(Translated("Measurement Level")).Cell(Translated("Ordinal"));
    }
}

}  // namespace

void HFITModelOutput::ModelSummary() {
    if (!fpStats || !fpBuildSettings || !fpStats->GetModelDiagnostics()) return;
    const ModelDiagnostics& diagnostics = *fpStats->GetModelDiagnostics();
    const BuildSettings& settings = *fpBuildSettings;

    BpPivotTable table = fProcedure->PivotTable(Translated("Model Summary"), Plain("ModelSummary"), false);
    table.MinDataColumnWidth(150);
    BpDimension content = table.Dimension(Translated("Content"), BpSort::AsIssued);
    content.Position(BpPlace::Rows, 1, true, false);

    TargetRows(content, settings, *fDataSource);
    MeasurementLevelRow(content, settings.fDistribution);
    content.Category(Translated("Probability Distribution"))
        .Cell(Translated(fpStats->DistributionText(settings.fDistribution, false)));
    BpCategory link = content.Category(Translated("Link Function"));
    if (settings.fLinkParam == fSysMis) {
        link.Cell(Translated(fpStats->LinkText(settings.fLink, settings.fDistribution, false)));
    } else {
        link.Cell(Composite(LinkPattern(settings.fLink, settings.fDistribution), SigDigitNumber(settings.fLinkParam)));
    }

    BpGroup criteria = content.Group(Translated("Information Criterion"), true, BpSort::AsIssued);
    NumberCell(criteria, "Akaike Corrected", diagnostics.fAICC, BpProcedure::GeneralStat());
    NumberCell(criteria, "Bayesian", diagnostics.fBIC, BpProcedure::GeneralStat());

    table.Caption(Composite("Information Criteria, log likelhood ^1 ...",
                            BpNumber(diagnostics.fMinus2LogLikelihood, BpProcedure::GeneralStat())));
}

}  // namespace hierfit
