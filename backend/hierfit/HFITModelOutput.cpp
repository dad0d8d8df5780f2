#include "hierfit/HFITModelOutput.h"

namespace hierfit {

HFITModelOutput::HFITModelOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats)
    : fSysMis(kSystemMissing),
      fProcedure(procedure),
      fDataSource(dataSource),
      fpStats(stats),
      fpBuildSettings(stats ? stats->GetBuildSettings() : nullptr) {}

void HFITModelOutput::Run() { ModelSummary(); }

}  // namespace hierfit
