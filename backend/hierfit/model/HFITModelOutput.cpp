#include "hierfit/model/HFITModelOutput.h"

#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/estimates/HFITParamEstimatesOutput.h"
#include "hierfit/means/HFITEmmeansOutput.h"

namespace hierfit {

HFITModelOutput::HFITModelOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats)
    : fSysMis(kSystemMissing),
      fProcedure(procedure),
      fDataSource(dataSource),
      fpStats(stats),
      fpBuildSettings(stats ? stats->GetBuildSettings() : nullptr) {}

void HFITModelOutput::Run() {
    ModelSummary();
    DataStructure();
    HFITChartOutput charts(fProcedure, fDataSource, fpStats);
    charts.BuildPredictedByObservedChart();
    Classification();
    HFITParamEstimatesOutput estimates(fProcedure, fDataSource, fpStats);
    estimates.FixedEffects();
    charts.BuildFixedEffectsDiagram();
    estimates.FixedCoefficients();
    charts.BuildFixedCoefficientsDiagram();
    estimates.RandomEffectCovariances();
    estimates.CovarianceParametersSummary();
    charts.BuildTopMeansCharts();
    HFITEmmeansOutput(fProcedure, fDataSource, fpStats).Run();
}

}  // namespace hierfit
