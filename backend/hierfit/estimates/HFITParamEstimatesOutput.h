#pragma once

#include <string>
#include <vector>

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpProcedure.h"
#include "host/KEST_DataSource.h"

namespace hierfit {

/// Stands for the residual effect where a block is asked for.
inline constexpr int kResidualBlock = -1;

/// Builds the tables of effects, coefficients and covariance parameters. It owns nothing but the effects' labels:
/// output, data source and store outlive it. A table whose data the store lacks, or whose data contradicts itself, is
/// not issued; in the latter case the host is told.
class HFITParamEstimatesOutput {
  public:
    HFITParamEstimatesOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats);

    void FixedEffects();

    /// One label for each effect, from the names of the data source. A list that holds labels already is left as it is.
    bool EffectLabels(const std::vector<EffectStruct>& effects, std::vector<std::string>& labels) const;

    /// The coefficients, in one set or in one for each category of a nominal target.
    void FixedCoefficients();
    void FixedCoefficientsSingle(BpHeading& heading, const ParamGroup& group);
    void FixedCoefficientsByCategory(BpHeading& heading, const ParamCollect& collect);

    void RandomEffectCovariances();
    void RandomEffectCovarianceTable(BpHeading& heading, const RandEffCovars& randEffCovars, int block);

    /// The heading of the covariance parameters, with its summary and the tables of residual and random effects.
    void CovarianceParametersSummary();
    void ResidualEffect(BpHeading& heading, const std::vector<ParamGroup>& paramEstimVect);
    void RandomEffect(BpHeading& heading, const std::vector<ParamGroup>& groups, int block, int nBlocks);

    /// One row for each parameter of a group. The block is -1 for the residual effect.
    void CovarianceParameterRows(BpGroup& rows, BpGroup& statistics, const ParamGroup& paramEstimData, int block);

    /// The subject fields as they stand in a caption. The flag is that of the text, "(None)" is never translated.
    BpString SubjectSpecCell(const EffectStruct& subjectSpec, bool translate = false) const;

    /// Adds the warnings that a caption of covariance parameters shows.
    void WarningSublist(BpComposite& caption) const;

  private:
    // Coefficients.
    bool IsThreshold(const ParamEstimate& estimate) const;
    bool ThresholdCategory(BpDimension& modelTerm, const ParamEstimate& estimate) const;

    // Residual effect.
    void SummaryTable(BpHeading& heading, const ModelDiagnostics& diagnostics, bool commonSubjectsHidden);
    BpComposite ResidualCaption() const;

    // Random effects. A block is segmented when it has a matrix or a group of parameters for each combination of
    // grouping values, or for each category of a nominal target. The table's name is for the host's ear.
    bool IsSegmented(const RandomSpec& spec) const;
    const RandomSpec* SpecOfBlock(int block, std::size_t nSegments, const std::string& table) const;
    BpComposite CovarianceCaption(const RandomSpec& spec, bool withWarnings) const;
    BpDimension SecondDimension(BpPivotTable& table, const RandomSpec& spec) const;
    bool SelectSegment(BpDimension& second, const RandomSpec& spec, const SubjectData& segment,
                       const std::string& table) const;

    double fSysMis;
    BpProcedure* fProcedure;
    KEST_DataSource* fDataSource;
    HFITOutputStats* fpStats;
    BuildSettings* fpBuildSettings;
    std::vector<std::string> fvFixedEffectLabels;
};

}  // namespace hierfit
