#include "hierfit/estimates/HFITParamEstimatesOutput.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

/// The columns of the statistics, written row by row.
class Columns {
  public:
    Columns(BpPivotTable& table, const BuildSettings& settings, double sysMis)
        : fStatistics(StatisticsDimension(table)),
          fConfidence(ConfidenceName(kConfidenceInterval, settings)),
          fExpConfidence(ConfidenceName("^1% Confidence Interval for Exp(Coefficient)", settings)),
          fSysMis(sysMis) {}

    void Row(const ParamEstimate& estimate) {
        if (estimate.fIsRedundant) {
            NumberCell(fStatistics, "Coefficient", 0, BpProcedure::Count())
                .CellNote(BpAnnotation(Translated("Redundant coefficient, zero ...")));
        } else {
            NumberCell(fStatistics, "Coefficient", estimate.fEstimate, BpProcedure::Coefficient());
        }
        NumberCell(fStatistics, "Std. Error", Figure(estimate, estimate.fStdError), BpProcedure::CoefficientSE());
        NumberCell(fStatistics, "t", Figure(estimate, estimate.fTTest), BpProcedure::GeneralStat());
        NumberCell(fStatistics, "Sig.", Figure(estimate, estimate.fSig), BpProcedure::Significance());
        BpGroup bounds = ConfidenceGroup(fStatistics, fConfidence);
        NumberCell(bounds, "Lower", Figure(estimate, estimate.fConfLower), BpProcedure::Coefficient());
        NumberCell(bounds, "Upper", Figure(estimate, estimate.fConfUpper), BpProcedure::Coefficient());
        if (estimate.fExpEstimate != fSysMis) ExpCells(estimate);
    }

  private:
    void ExpCells(const ParamEstimate& estimate) {
        NumberCell(fStatistics, "Exp(Coefficient)", Figure(estimate, estimate.fExpEstimate),
                   BpProcedure::Coefficient());
        BpGroup bounds = ConfidenceGroup(fStatistics, fExpConfidence);
        NumberCell(bounds, "Lower", Figure(estimate, estimate.fExpCILower), BpProcedure::Coefficient());
        NumberCell(bounds, "Upper", Figure(estimate, estimate.fExpCIUpper), BpProcedure::Coefficient());
    }

    /// A redundant estimate has no figure but its zero.
    double Figure(const ParamEstimate& estimate, double figure) const {
        return estimate.fIsRedundant ? fSysMis : figure;
    }

    BpDimension fStatistics;
    BpComposite fConfidence;
    BpComposite fExpConfidence;
    double fSysMis;
};

BpPivotTable OpenTable(BpHeading& heading) {
    return heading.PivotTable(Translated("Fixed Coefficients"), Plain("FixedCoefficients"), true);
}

BpDimension ModelTerm(BpPivotTable& table) {
    BpDimension modelTerm = table.Dimension(Translated("Model Term"), BpSort::AsIssued);
    modelTerm.Position(BpPlace::Rows, 1, false, false);
    return modelTerm;
}

void TermCategory(BpDimension& modelTerm, const ParamEstimate& estimate) {
    modelTerm.Category(*LabelCell(estimate.fParam.fIsIntercept ? "Intercept" : estimate.fParamLabel));
}

}  // namespace

void HFITParamEstimatesOutput::FixedCoefficients() {
    const ParamCollect* collect = fpStats->GetParamCollect();
    if (!collect || collect->fvFixedParamEstim.empty()) return;
    if (fpBuildSettings->fDistribution == DistributionOfTarget::NOMINAL) {
        FixedCoefficientsByCategory(*fProcedure, *collect);
    } else if (collect->fvFixedParamEstim.size() == 1) {
        FixedCoefficientsSingle(*fProcedure, collect->fvFixedParamEstim.front());
    } else {
        Diagnose("table \"Fixed Coefficients\" is left out: there are " +
                 std::to_string(collect->fvFixedParamEstim.size()) + " sets of coefficients, not one");
    }
}

void HFITParamEstimatesOutput::FixedCoefficientsSingle(BpHeading& heading, const ParamGroup& group) {
    BpPivotTable table = OpenTable(heading);
    table.Note(BpAnnotation(TargetNote(*fpBuildSettings, *fDataSource)));
    table.Caption(DistributionCaption(*fpStats, *fpBuildSettings, false));
    BpDimension modelTerm = ModelTerm(table);
    Columns columns(table, *fpBuildSettings, fSysMis);

    for (const ParamEstimate& estimate : group.fvParamEstimates) {
        if (!IsThreshold(estimate)) {
            TermCategory(modelTerm, estimate);
        } else if (!ThresholdCategory(modelTerm, estimate)) {
            continue;
        }
        columns.Row(estimate);
    }
}

void HFITParamEstimatesOutput::FixedCoefficientsByCategory(BpHeading& heading, const ParamCollect& collect) {
    BpPivotTable table = OpenTable(heading);
    table.Note(BpAnnotation(TargetOnlyNote(*fpBuildSettings, *fDataSource)));
    table.Caption(DistributionCaption(*fpStats, *fpBuildSettings, true));
    const KEST_Variable* variable = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    BpDimension modelTerm = ModelTerm(table);
    BpDimension target = table.Dimension(BpVariable(variable, BpShow::AsHeader), BpSort::AsIssued);
    target.Position(BpPlace::Rows, 2, false, false);
    Columns columns(table, *fpBuildSettings, fSysMis);

    for (const ParamGroup& group : collect.fvFixedParamEstim) {
        const BpDataValue category(variable, group.fTargetValue.GetObsValue(), BpPreference::AsHeader);
        for (const ParamEstimate& estimate : group.fvParamEstimates) {
            target.Category(category);
            TermCategory(modelTerm, estimate);
            columns.Row(estimate);
        }
    }
}

bool HFITParamEstimatesOutput::IsThreshold(const ParamEstimate& estimate) const {
    return fpBuildSettings->fDistribution == DistributionOfTarget::ORDINAL && estimate.fStatIndex < 0;
}

bool HFITParamEstimatesOutput::ThresholdCategory(BpDimension& modelTerm, const ParamEstimate& estimate) const {
    if (estimate.fParam.fvFactors.empty()) {
        Diagnose("table \"Fixed Coefficients\": the threshold \"" + unicode::Excerpt(estimate.fParamName) +
                 "\" is left out, since it names no category of the target");
        return false;
    }
    const KEST_Variable* target = fDataSource->GetVariable(fpBuildSettings->fTargetIndex);
    const OBS* category = estimate.fParam.fvFactors.front().fValue.GetObsValue();
    modelTerm.Group(Composite("Threshold for ^1=", BpVariable(target, BpShow::InText)), true, BpSort::AsIssued)
        .Category(BpDataValue(target, category, BpPreference::Plain));
    return true;
}

}  // namespace hierfit
