#include "hierfit/estimates/HFITParamEstimatesOutput.h"
#include "hierfit/tables/MessageKeys.h"
#include "hierfit/tables/TableParts.h"

namespace hierfit {

namespace {

constexpr const char* kScaleParameter = "Variance ";

/// What conditions of the fit change in the rows of one call.
struct Overrides {
    bool fUseOverride = false;
    double fOverrideValue = 0;
    bool fHasScale = false;  ///< the value is the fixed scale: the estimate stands alone, with a note
    bool fHasC10 = false;
};

bool HasDiscreteScale(int distribution) {
    return distribution == DistributionOfTarget::BINOMIAL || distribution == DistributionOfTarget::NOMINAL ||
           distribution == DistributionOfTarget::NEGBIN || distribution == DistributionOfTarget::POISSON;
}

bool HasContinuousScale(int distribution) {
    return distribution == DistributionOfTarget::GAMMA || distribution == DistributionOfTarget::IGAUSS ||
           distribution == DistributionOfTarget::NORMAL;
}

Overrides OverridesFor(const HFITOutputStats& stats, int distribution, int block) {
    Overrides overrides;
    overrides.fHasC10 = stats.HasWarning(kGLMM_C10);
    const bool isResidual = block < 0;
    if (stats.HasWarning(kGLMM_C9)) {
        overrides.fUseOverride = HasDiscreteScale(distribution);
        overrides.fHasScale = overrides.fUseOverride && isResidual;
        overrides.fOverrideValue = isResidual ? 1 : 0;
    } else if (stats.HasWarning(kGLMM_C8)) {
        overrides.fUseOverride = HasContinuousScale(distribution) && !isResidual;
    }
    return overrides;
}

/// The columns of the statistics, written row by row.
class Columns {
  public:
    Columns(BpGroup& statistics, const Overrides& overrides, const BuildSettings& settings, double sysMis)
        : fStatistics(statistics),
          fOverrides(overrides),
          fConfidence(ConfidenceName(kConfidenceInterval, settings)),
          fSysMis(sysMis) {}

    void Row(const ParamEstimate& estimate) {
        const double value = fOverrides.fUseOverride ? fOverrides.fOverrideValue : estimate.fEstimate;
        BpCategory cell = NumberCell(fStatistics, "Estimate", value, BpProcedure::Coefficient());
        EstimateNotes(cell, estimate);
        if (!fOverrides.fHasScale) {
            NumberCell(fStatistics, "Std. Error", Bound(estimate, estimate.fStdError), BpProcedure::Coefficient());
        }
        if (!fOverrides.fUseOverride) {
            const BpNumber z(Figure(estimate, estimate.fZTest), BpProcedure::Coefficient());
            fStatistics.Category(Plain("Z")).Cell(z);
            NumberCell(fStatistics, "Sig.", Figure(estimate, estimate.fSig), BpProcedure::Significance());
        }
        BpGroup bounds = ConfidenceGroup(fStatistics, fConfidence);
        if (fOverrides.fHasScale) return;
        NumberCell(bounds, "Lower", Bound(estimate, estimate.fConfLower), BpProcedure::Coefficient());
        NumberCell(bounds, "Upper", Bound(estimate, estimate.fConfUpper), BpProcedure::Coefficient());
    }

  private:
    void EstimateNotes(BpCategory& cell, const ParamEstimate& estimate) const {
        if (estimate.fIsRedundant) cell.CellNote(BpAnnotation(Translated("Parameter redundant")));
        if (fOverrides.fHasScale) {
            cell.CellNote(BpAnnotation(Translated(kGLMM_C9)));
        } else if (fOverrides.fHasC10) {
            cell.CellNote(BpAnnotation(Translated(kGLMM_C10)));
        }
    }

    /// A redundant parameter has no figure but its estimate.
    double Figure(const ParamEstimate& estimate, double figure) const {
        return estimate.fIsRedundant ? fSysMis : figure;
    }

    double Bound(const ParamEstimate& estimate, double figure) const {
        return fOverrides.fUseOverride ? fOverrides.fOverrideValue : Figure(estimate, figure);
    }

    BpGroup& fStatistics;
    const Overrides& fOverrides;
    BpComposite fConfidence;
    double fSysMis;
};

}  // namespace

void HFITParamEstimatesOutput::CovarianceParameterRows(BpGroup& rows, BpGroup& statistics,
                                                       const ParamGroup& paramEstimData, int block) {
    const Overrides overrides = OverridesFor(*fpStats, fpBuildSettings->fDistribution, block);
    Columns columns(statistics, overrides, *fpBuildSettings, fSysMis);
    for (const ParamEstimate& estimate : paramEstimData.fvParamEstimates) {
        std::string key;
        std::vector<std::string> args;
        std::string label;
        fpStats->CovarianceParameterLabel(estimate.fPrintableList, block, key, args, label);
        BpCategory row = rows.Category(Plain(label));
        if (block == kResidualBlock && key == kScaleParameter) {
            row.CellNote(BpAnnotation(Translated("This is the scale parameter.")));
        }
        columns.Row(estimate);
    }
}

}  // namespace hierfit
