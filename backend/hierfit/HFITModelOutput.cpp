#include "hierfit/HFITModelOutput.h"

#include "hierfit/HFITEmmeansOutput.h"
#include "hierfit/HFITParamEstimatesOutput.h"

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
    Classification();
    HFITParamEstimatesOutput estimates(fProcedure, fDataSource, fpStats);
    estimates.FixedEffects();
    estimates.FixedCoefficients();
    estimates.RandomEffectCovariances();
    estimates.CovarianceParametersSummary();
    HFITEmmeansOutput(fProcedure, fDataSource, fpStats).Run();
}

}  // namespace hierfit
