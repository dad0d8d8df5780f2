#include "hierfit/reader/HFITParseOutXML.h"

#include <exception>
#include <sstream>

#include "hierfit/reader/XmlReading.h"
#include "host/BpError.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

HFITParseOutXML::HFITParseOutXML(const KEST_DataSource* dataSource, HFITOutputStats* stats, const std::string& PMMLStr,
                                 const std::string& statXMLStr)
    : fSysMis(kSystemMissing),
      fDataSource(dataSource),
      fpStats(stats),
      fpPMMLStr(&PMMLStr),
      fpStatXMLStr(&statXMLStr) {}

bool HFITParseOutXML::Parse() { return ParsePMML(*fpPMMLStr) && ParseStatXML(*fpStatXMLStr); }

bool HFITParseOutXML::ParsePMML(const std::string& PMMLStr) {
    if (fPMMLParsed) return true;
    MCPMMLParser parser;
    std::istringstream stream(PMMLStr);
    if (parser.ParseToDOM(stream).IsError()) return false;
    if (parser.FillVarList(fpStats->CreateVarList(), {}, false).IsError()) return false;
    fpStats->BuildVarMap();
    fPMMLParsed = true;
    return true;
}

bool HFITParseOutXML::ParseStatXML(const std::string& statXMLStr) {
    if (fStatXMLParsed) return true;
    if (statXMLStr.empty()) return false;
    try {
        fStatXMLParsed = ReadDocument(statXMLStr);
    } catch (const std::exception& exception) {
        fStatXMLParsed = false;
        NoteDropped();
        Diagnose(std::string("the reading broke off: ") + exception.what());
    } catch (...) {
        fStatXMLParsed = false;
    }
    if (!fStatXMLParsed)
        BpError(BpString("StatXML parsing error ...", true), BpErrorShow::InOutput, BpErrorLevel::Error);
    return fStatXMLParsed;
}

bool HFITParseOutXML::ReadDocument(const std::string& statXMLStr) {
    SDOMXMLWrapper root;
    const bool isLoaded = root.LoadFromString(statXMLStr) != nullptr;
    fpBuildSettings = fpStats->CreateBuildSettings();
    return isLoaded && ReadAlgorithmName(root) && ReadSettingsPart(root) && ReadStringMapsPart(root) &&
           ReadDiagnosticsPart(root) && ReadTrainingPart(root);
}

bool HFITParseOutXML::ReadAlgorithmName(const SDOMXMLWrapper& root) {
    const SDOMXMLWrapper* summary = FirstElement(root, "PMMLModel/PredictiveSummary");
    if (!summary || !summary->GetAttribute("algorithmName", fpBuildSettings->fAlgorithmName)) return false;
    if (fpBuildSettings->fAlgorithmName == "GLMM") return true;
    Diagnose(*summary, "the algorithm is \"" + unicode::Excerpt(fpBuildSettings->fAlgorithmName) + "\", not \"GLMM\"");
    return false;
}

bool HFITParseOutXML::ReadSettingsPart(const SDOMXMLWrapper& root) {
    SDOMXMLWrapper* settings = FirstElement(root, "BuildSettings");
    if (settings && ReadBuildSettings(settings, fpBuildSettings)) return true;
    fpStats->RemoveBuildSettings();
    fpBuildSettings = nullptr;
    return false;
}

bool HFITParseOutXML::ReadStringMapsPart(const SDOMXMLWrapper& root) {
    StringMapCollect* record = fpStats->CreateStringMapCollect();
    const SDOMXMLWrapper* model = FirstElement(root, "PMMLModel");
    SDOMXMLIterator* iterator = nullptr;
    return model && model->GetElementIterator("StringMap", &iterator, true) && ReadStringMaps(iterator, record);
}

bool HFITParseOutXML::ReadDiagnosticsPart(const SDOMXMLWrapper& root) {
    ModelDiagnostics* record = fpStats->CreateModelDiagnostics();
    SDOMXMLWrapper* diagnostics = FirstElement(root, "PMMLModel/ModelDiagnostics");
    return diagnostics && ReadModelDiagnostics(diagnostics, record) && ReadStructuredDataPart(*diagnostics) &&
           ReadClassificationPart(*diagnostics) && ReadDataGroupsPart(*diagnostics);
}

bool HFITParseOutXML::ReadStructuredDataPart(const SDOMXMLWrapper& diagnostics) {
    SDOMXMLIterator* iterator = nullptr;
    if (!diagnostics.GetElementIterator("StructuredData", &iterator, true)) return true;
    return ReadStructuredData(iterator, fpStats->CreateStructuredData());
}

bool HFITParseOutXML::ReadClassificationPart(const SDOMXMLWrapper& diagnostics) {
    SDOMXMLWrapper* matrix = FirstElement(diagnostics, "Matrix");
    if (!matrix || AttributeText(*matrix, "description") != "classificationTable") return true;
    return ReadMatrix(matrix, fpStats->CreateClassifMatrixData());
}

bool HFITParseOutXML::ReadDataGroupsPart(const SDOMXMLWrapper& diagnostics) {
    SDOMXMLIterator* iterator = nullptr;
    return !diagnostics.GetElementIterator("DataGroup", &iterator, true) || ParseDataGroups(iterator);
}

bool HFITParseOutXML::ReadTrainingPart(const SDOMXMLWrapper& root) {
    const SDOMXMLWrapper* training = FirstElement(root, "PMMLModel/TrainingSummary");
    if (!training) return false;
    // Looked for first, so that the last look-up that fails is the one that made the estimates fail.
    SDOMXMLIterator* messages = nullptr;
    const bool hasMessages = training->GetElementIterator("Message", &messages, true);
    SDOMXMLIterator* estimates = nullptr;
    const bool hasEstimates = training->GetElementIterator("ParameterEstimates", &estimates, true);
    const bool ok = ReadEstimatesPart(estimates);
    if (!hasMessages) return ok;
    // The back-end's messages stand in for estimates that could not be read.
    if (hasEstimates && !ok) Diagnose(*training, "the parameter estimates could not be read and are left out");
    return ParseWarningMessages(messages, &fpStats->GetWarningList());
}

bool HFITParseOutXML::ReadEstimatesPart(SDOMXMLIterator* estimates) {
    ParamCollect* record = fpStats->CreateParamCollect();
    if (estimates && ReadParameterEstimates(estimates, record)) return true;
    fpStats->RemoveParamCollect();
    return false;
}

}  // namespace hierfit
