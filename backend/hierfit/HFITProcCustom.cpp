#include "hierfit/HFITProcCustom.h"

#include <new>

#include "hierfit/model/HFITModelOutput.h"
#include "hierfit/reader/HFITParseOutXML.h"
#include "host/Diagnose.h"

namespace hierfit {

HFITProcCustom::HFITProcCustom() : fpHFITOutputStats(std::make_unique<HFITOutputStats>()) {}

HFITProcCustom::HFITProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource)
    : CFProcCustom(procedure, dataSource), fpHFITOutputStats(std::make_unique<HFITOutputStats>()) {}

HFITProcCustom::~HFITProcCustom() = default;

bool HFITProcCustom::AcceptRun(void*, void*) { return true; }

bool HFITProcCustom::ProcessDocuments(std::vector<std::string>& vPMMLStr, std::vector<StatXMLBlock>& vStatXMLBlocks,
                                      std::string& summaryXMLStr) {
    if (vPMMLStr.size() != 1 || vStatXMLBlocks.size() != 1 || !summaryXMLStr.empty()) {
        Diagnose("the procedure takes exactly one PMML document, one StatXML document and an empty summary");
        return false;
    }
    return ProduceOutput(vPMMLStr.front(), vStatXMLBlocks.front());
}

bool HFITProcCustom::ProduceOutput(const std::string& PMMLStr, const StatXMLBlock& statXMLBlock) {
    if (!fProcedure || !fDataSource || !fMetaData) {
        Diagnose("the procedure was started without its output, its data source or its metadata");
        return false;
    }
    fpHFITOutputStats->SetMetaData(fMetaData);
    HFITParseOutXML reader(fDataSource, fpHFITOutputStats.get(), PMMLStr, statXMLBlock.fStatXML);
    if (!reader.Parse()) return false;
    HFITModelOutput(fProcedure, fDataSource, fpHFITOutputStats.get()).Run();
    return true;
}

}  // namespace hierfit

/// The module's one export; see `hierfit::CFProcCustomFactory`.
extern "C" __attribute__((visibility("default"))) hierfit::CFProcCustom* GetCFProcCustom() {
    try {
        return new hierfit::HFITProcCustom;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
