#pragma once

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpProcedure.h"
#include "host/KEST_DataSource.h"

namespace hierfit {

/// Issues all output of a run in its fixed order, and builds the tables of the model as a whole. It owns nothing:
/// output, data source and store outlive it. A table whose data the store lacks is not issued and stops nothing.
class HFITModelOutput {
  public:
    HFITModelOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats);

    void Run();

    void ModelSummary();
    void DataStructure();
    void Classification();

  private:
    double fSysMis;
    BpProcedure* fProcedure;
    KEST_DataSource* fDataSource;
    HFITOutputStats* fpStats;
    BuildSettings* fpBuildSettings;
};

}  // namespace hierfit
