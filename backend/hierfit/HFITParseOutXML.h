#pragma once

#include <string>
#include <vector>

#include "hierfit/HFITOutputStats.h"
#include "host/KEST_DataSource.h"
#include "host/SDOMXMLWrapper.h"

namespace hierfit {

/// Reads the two documents of a run into the result store. It owns nothing but its flags: data source, store and texts
/// outlive it. Every reading operation answers false when the document breaks what it must keep; that goes back to the
/// driver, which reports one error.
class HFITParseOutXML {
  public:
    HFITParseOutXML(const KEST_DataSource* dataSource, HFITOutputStats* stats, const std::string& PMMLStr,
                    const std::string& statXMLStr);

    /// Reads the PMML document and, when that succeeded, the StatXML document.
    bool Parse();

    /// Each reads its document once; when it has been read before, the answer is true at once.
    bool ParsePMML(const std::string& PMMLStr);
    bool ParseStatXML(const std::string& statXMLStr);

  private:
    // The document's parts, in the order of the walk.
    bool ReadDocument(const std::string& statXMLStr);
    bool ReadAlgorithmName(const SDOMXMLWrapper& root);
    bool ReadSettingsPart(const SDOMXMLWrapper& root);
    bool ReadDiagnosticsPart(const SDOMXMLWrapper& root);
    bool ReadTrainingPart(const SDOMXMLWrapper& root);

    // Build settings.
    bool ReadBuildSettings(SDOMXMLWrapper* element, BuildSettings* record);
    bool ReadParameter(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadTargetField(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadTrialsField(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadResidualSubjectSpec(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadResidualGroupSpec(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadFixedEffectList(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadRandomSpecs(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadRandomAttribute(const SDOMXMLWrapper& element, RandomSpec* record);
    bool ReadEmmeansSpecs(const SDOMXMLWrapper& element, BuildSettings* record);
    bool ReadEmmeansSpec(const SDOMXMLWrapper& element, EmmeansSpec* record);
    bool ReadEmmeansAttribute(const SDOMXMLWrapper& element, EmmeansSpec* record);

    // What several settings are made of. A null list has nothing to read.
    int FindNamedField(const SDOMXMLWrapper& element, const std::string& name);
    bool ReadEffect(const SDOMXMLWrapper& element, EffectStruct* record);
    bool ReadEffectAttribute(const SDOMXMLWrapper& element, EffectStruct* record);
    bool ReadEffectList(const SDOMXMLWrapper* listValue, std::vector<EffectStruct>* list);
    static void ReadValueList(const SDOMXMLWrapper* listValue, std::vector<std::string>* values);

    // Model diagnostics.
    bool ReadModelDiagnostics(SDOMXMLWrapper* element, ModelDiagnostics* record);
    bool ReadTargetDistribution(SDOMXMLIterator* iterator, TargetDistribution* record);
    bool ReadPredByObserved(SDOMXMLIterator* iterator, PredByObserved* record);
    bool ReadModelTests(SDOMXMLIterator* iterator, EffectStatData* record);

    // Messages.
    bool ParseWarningMessages(SDOMXMLIterator* iterator, std::vector<WarningMessage>* list);

    bool fPMMLParsed = false;
    bool fStatXMLParsed = false;
    double fSysMis;
    const KEST_DataSource* fDataSource;
    HFITOutputStats* fpStats;
    BuildSettings* fpBuildSettings = nullptr;
    const std::string* fpPMMLStr;
    const std::string* fpStatXMLStr;
};

}  // namespace hierfit
