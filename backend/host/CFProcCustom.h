#pragma once

#include <string>
#include <vector>

#include "host/BpProcedure.h"
#include "host/CFMetaData.h"
#include "host/Export.h"
#include "host/KEST_DataSource.h"

namespace hierfit {

/// The host's record of one StatXML document.
struct StatXMLBlock {
    std::string fStatXML;  ///< the document's text
};

/// Base class of the procedures that a plug-in module provides. The framework fills the three members before it calls
/// `ProcessDocuments`; it owns what they point to and keeps it alive until after the destructor.
class HIERFIT_EXPORT CFProcCustom {
  public:
    CFProcCustom() = default;
    CFProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource)
        : fProcedure(procedure), fDataSource(dataSource) {}
    CFProcCustom(const CFProcCustom&) = delete;
    CFProcCustom& operator=(const CFProcCustom&) = delete;
    virtual ~CFProcCustom() = default;

    /// A hook of the framework; true lets the run go on.
    virtual bool AcceptRun(void* first, void* second) = 0;

    /// Runs the procedure on its documents: exactly one PMML text and one StatXML block; `summaryXMLStr` is empty.
    virtual bool ProcessDocuments(std::vector<std::string>& vPMMLStr, std::vector<StatXMLBlock>& vStatXMLBlocks,
                                  std::string& summaryXMLStr) = 0;

    /// Reads both documents and issues all output. True when both were read.
    virtual bool ProduceOutput(const std::string& PMMLStr, const StatXMLBlock& statXMLBlock) = 0;

    BpProcedure* fProcedure = nullptr;
    ProcedureDataSource* fDataSource = nullptr;
    CFMetaData* fMetaData = nullptr;
};

/// Type and name of the one function that a plug-in module exports. It creates a procedure that the caller owns and
/// deletes through its virtual destructor; null when it cannot be created.
using CFProcCustomFactory = CFProcCustom* (*)();
inline constexpr const char* kCFProcCustomFactory = "GetCFProcCustom";

}  // namespace hierfit
