#include <optional>

#include "hierfit/estimates/HFITParamEstimatesOutput.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

std::string NameOfTable(const char* family, int block) {
    return std::string("table \"") + family + "\" of random effect block " + std::to_string(block + 1);
}

BpComposite BlockTitle(int block) { return Composite("Random Effect Block ^1", CountNumber(block + 1)); }

bool Covers(const MatrixData& matrix, std::size_t n) {
    if (matrix.fvRows.size() < n) return false;
    for (const MatrixRow& row : matrix.fvRows) {
        if (row.fvValues.size() < n) return false;
    }
    return true;
}

void MatrixCells(BpDimension& rows, BpDimension& columns, const std::vector<BpString>& labels,
                 const MatrixData& matrix) {
    for (std::size_t i = 0; i < labels.size(); ++i) {
        rows.Category(labels[i]);
        for (std::size_t j = 0; j < labels.size(); ++j) {
            columns.Category(labels[j]).Cell(BpNumber(matrix.fvRows[i].fvValues[j], BpProcedure::GeneralStat()));
        }
    }
}

}  // namespace

void HFITParamEstimatesOutput::RandomEffectCovariances() {
    const StructuredData* data = fpStats->GetStructuredData();
    if (!data || data->fvRandEffCovars.empty()) return;
    BpHeading heading = fProcedure->Heading(Translated("Random Effect Covariances"));
    int block = 0;
    for (const RandEffCovars& randEffCovars : data->fvRandEffCovars) {
        RandomEffectCovarianceTable(heading, randEffCovars, block++);
    }
}

void HFITParamEstimatesOutput::RandomEffectCovarianceTable(BpHeading& heading, const RandEffCovars& randEffCovars,
                                                           int block) {
    const std::string name = NameOfTable("Random Effect Covariances", block);
    const RandomSpec* spec = SpecOfBlock(block, randEffCovars.fMatrixValues.size(), name);
    if (!spec) return;
    BpPivotTable table = heading.PivotTable(BlockTitle(block), Plain("RandomEffects"), true);
    table.Caption(CovarianceCaption(*spec, false));
    BpDimension rows = table.Dimension(Translated("Random Effect Block"), BpSort::AsIssued);
    rows.Position(BpPlace::Rows, 1, false, false);
    const bool isSegmented = IsSegmented(*spec);
    std::optional<BpDimension> second;
    if (isSegmented) second = SecondDimension(table, *spec);
    BpDimension columns = table.Dimension(BpString("Random Effect Block Column", isSegmented), BpSort::AsIssued);
    columns.Position(BpPlace::Columns, 1, true, false);

    std::vector<BpString> labels;
    for (const std::string& label : randEffCovars.fvLabels) labels.push_back(Translated(label));
    for (std::size_t k = 0; k < randEffCovars.fMatrixValues.size(); ++k) {
        const MatrixData& matrix = randEffCovars.fMatrixValues[k];
        if (!Covers(matrix, labels.size())) {
            Diagnose(name + ": matrix " + std::to_string(k + 1) + " is left out, since it is smaller than its labels");
        } else if (!second || SelectSegment(*second, *spec, randEffCovars.fSimpleSubjects[k], name)) {
            MatrixCells(rows, columns, labels, matrix);
        }
    }
}

void HFITParamEstimatesOutput::RandomEffect(BpHeading& heading, const std::vector<ParamGroup>& groups, int block,
                                            int nBlocks) {
    const std::string name = NameOfTable("Random Effect", block);
    const RandomSpec* spec = SpecOfBlock(block, groups.size(), name);
    if (!spec) return;
    const bool isOnly = nBlocks == 1;
    BpPivotTable table = isOnly ? heading.PivotTable(Translated("Random Effect"), Plain("CovarianceParameters"), true)
                                : heading.PivotTable(BlockTitle(block), Plain("CovarianceParameters"), true);
    table.Caption(CovarianceCaption(*spec, true));
    const bool isSegmented = IsSegmented(*spec);
    const char* rowsName = isOnly || !isSegmented ? "Random Effect Covariance" : "Random Effect Block";
    BpDimension rows = table.Dimension(Translated(rowsName), BpSort::AsIssued);
    rows.Position(BpPlace::Rows, 1, false, false);
    std::optional<BpDimension> second;
    if (isSegmented) second = SecondDimension(table, *spec);
    BpDimension columns = table.Dimension(Plain("Random Effect Covariance Column"), BpSort::AsIssued);
    columns.Position(BpPlace::Columns, 1, true, false);

    for (const ParamGroup& group : groups) {
        if (second && !SelectSegment(*second, *spec, group.fFiledData, name)) continue;
        CovarianceParameterRows(rows, columns, group, block);
    }
}

bool HFITParamEstimatesOutput::IsSegmented(const RandomSpec& spec) const {
    return !spec.fvGroupSpec.empty() || fpBuildSettings->fDistribution == DistributionOfTarget::NOMINAL;
}

const RandomSpec* HFITParamEstimatesOutput::SpecOfBlock(int block, std::size_t nSegments,
                                                        const std::string& table) const {
    const auto at = static_cast<std::size_t>(block);
    if (block < 0 || at >= fpBuildSettings->fvRandomSpecs.size()) {
        Diagnose(table + " is left out: the settings have no such block");
        return nullptr;
    }
    const RandomSpec& spec = fpBuildSettings->fvRandomSpecs[at];
    if (IsSegmented(spec) || nSegments == 1) return &spec;
    Diagnose(table + " is left out: there are " + std::to_string(nSegments) + " sets of parameters, not one");
    return nullptr;
}

BpComposite HFITParamEstimatesOutput::CovarianceCaption(const RandomSpec& spec, bool withWarnings) const {
    BpComposite caption("Covariance Structure ^1 Subject Specification ^2 ...", true);
    caption.Add(Plain(fpStats->CovarianceText(spec.fCovarianceType, true)));
    caption.Add(SubjectSpecCell(spec.fSubjectSpec, true));
    if (withWarnings) WarningSublist(caption);
    caption.Finish();
    return caption;
}

BpDimension HFITParamEstimatesOutput::SecondDimension(BpPivotTable& table, const RandomSpec& spec) const {
    const BpVariable target(fDataSource->GetVariable(fpBuildSettings->fTargetIndex), BpShow::AsHeader);
    BpDimension second = spec.fvGroupSpec.empty() ? table.Dimension(target, BpSort::AsIssued)
                                                  : table.Dimension(Translated("Grouping"), BpSort::AsIssued);
    second.Position(BpPlace::Rows, 2, false, false);
    return second;
}

bool HFITParamEstimatesOutput::SelectSegment(BpDimension& second, const RandomSpec& spec, const SubjectData& segment,
                                             const std::string& table) const {
    if (!spec.fvGroupSpec.empty()) {
        second.Category(GroupingCell(segment, *fDataSource));
        return true;
    }
    if (segment.fSubjectValues.size() != 1) {
        Diagnose(table + ": a target category is left out, since " + std::to_string(segment.fSubjectValues.size()) +
                 " values stand for it");
        return false;
    }
    const KEST_Variable* target = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    second.Category(BpDataValue(target, segment.fSubjectValues.front().GetObsValue(), BpPreference::AsHeader));
    return true;
}

}  // namespace hierfit
