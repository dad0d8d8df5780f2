#include "hierfit/model/HFITModelOutput.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

using Labels = std::vector<std::unique_ptr<BpCellText>>;

/// The reason why a matrix cannot be printed; empty when it can.
std::string FaultOf(const ClassifMatrixData& matrix, bool useTrials) {
    const std::size_t n = matrix.fvRows.size();
    if (useTrials && n > 2) return "there are more than two categories of events out of trials";
    if (!useTrials && matrix.fvLabels.size() < n) return "there are fewer labels than rows";
    for (const MatrixRow& row : matrix.fvRows) {
        if (row.fvValues.size() < n) return "the matrix is not square";
    }
    return "";
}

Labels TrialsLabels() {
    Labels labels;
    labels.push_back(std::make_unique<BpString>("Non-Event", true));
    labels.push_back(std::make_unique<BpString>("Event", true));
    return labels;
}

Labels TargetLabels(const ClassifMatrixData& matrix, const KEST_Variable* target) {
    Labels labels;
    for (const CFStatVariableValue& label : matrix.fvLabels) {
        labels.push_back(std::make_unique<BpDataValue>(target, label.GetObsValue(), BpPreference::AsHeader));
    }
    return labels;
}

double PercentOf(double count, double total) { return total == 0 ? 0 : 100 * count / total; }

}  // namespace

void HFITModelOutput::Classification() {
    if (!fpStats || !fpBuildSettings || !fpStats->GetModelDiagnostics() || !fpStats->GetClassifMatrixData()) return;
    const ClassifMatrixData& matrix = *fpStats->GetClassifMatrixData();
    if (const std::string fault = FaultOf(matrix, fpBuildSettings->fUseTrials); !fault.empty()) {
        Diagnose("table \"Classification\" is left out: " + fault);
        return;
    }

    const double accuracy = fpStats->GetModelDiagnostics()->fClassificationAccuracy;
    const BpComposite title =
        Composite("Classification, overall ^1 ...", BpNumber(accuracy * 100, BpProcedure::Percent()));
    BpPivotTable table = fProcedure->PivotTable(title, Plain("Classification"), true);
    table.Note(BpAnnotation(TargetNote(*fpBuildSettings, *fDataSource)));
    BpDimension observed = table.Dimension(Translated("Observed"), BpSort::AsIssued);
    observed.Position(BpPlace::Rows, 2, false, false);
    BpDimension statistics = table.Dimension(Plain("Statistics"), BpSort::AsIssued);
    statistics.Position(BpPlace::Rows, 1, true, false);
    BpDimension predicted = table.Dimension(Translated("Predicted"), BpSort::AsIssued);
    predicted.Position(BpPlace::Columns, 1, false, false);

    const KEST_Variable* target = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    const Labels labels = fpBuildSettings->fUseTrials ? TrialsLabels() : TargetLabels(matrix, target);
    for (std::size_t i = 0; i < matrix.fvRows.size(); ++i) {
        observed.Category(*labels[i]);
        const MatrixRow& row = matrix.fvRows[i];
        for (std::size_t j = 0; j < matrix.fvRows.size(); ++j) {
            predicted.Category(*labels[j]);
            NumberCell(statistics, "E60868", row.fvValues[j], BpProcedure::Count());
            NumberCell(statistics, "% within Observed", PercentOf(row.fvValues[j], row.fRowTotal),
                       BpProcedure::Percent());
        }
    }
}

}  // namespace hierfit
