#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hierfit/store/HFITOutputStats.h"
#include "host/CFProcCustom.h"

namespace hierfit {

/// The procedure as the framework drives it: it owns the result store, hands both documents to the reader and, when
/// they were read, has all output issued. One object serves one run.
class HFITProcCustom : public CFProcCustom {
  public:
    HFITProcCustom();
    HFITProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource);
    ~HFITProcCustom() override;

    bool AcceptRun(void* first, void* second) override;
    bool ProcessDocuments(std::vector<std::string>& vPMMLStr, std::vector<StatXMLBlock>& vStatXMLBlocks,
                          std::string& summaryXMLStr) override;
    bool ProduceOutput(const std::string& PMMLStr, const StatXMLBlock& statXMLBlock) override;

  private:
    std::unique_ptr<HFITOutputStats> fpHFITOutputStats;
};

}  // namespace hierfit
