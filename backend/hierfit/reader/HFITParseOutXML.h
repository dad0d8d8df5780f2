#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hierfit/store/HFITOutputStats.h"
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
    bool ReadStringMapsPart(const SDOMXMLWrapper& root);
    bool ReadDiagnosticsPart(const SDOMXMLWrapper& root);
    bool ReadStructuredDataPart(const SDOMXMLWrapper& diagnostics);
    bool ReadClassificationPart(const SDOMXMLWrapper& diagnostics);
    bool ReadDataGroupsPart(const SDOMXMLWrapper& diagnostics);
    bool ReadTrainingPart(const SDOMXMLWrapper& root);
    bool ReadEstimatesPart(SDOMXMLIterator* estimates);

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
    int FindNamedField(const SDOMXMLWrapper& element, const std::string& name, const std::string& otherwise);
    bool ReadEffect(const SDOMXMLWrapper& element, EffectStruct* record);
    bool ReadEffectAttribute(const SDOMXMLWrapper& element, EffectStruct* record);
    bool ReadEffectList(const SDOMXMLWrapper* listValue, std::vector<EffectStruct>* list);
    static void ReadValueList(const SDOMXMLWrapper* listValue, std::vector<std::string>* values);

    // Model diagnostics.
    bool ReadModelDiagnostics(SDOMXMLWrapper* element, ModelDiagnostics* record);
    bool ReadTargetDistribution(SDOMXMLIterator* iterator, TargetDistribution* record);
    bool ReadPredByObserved(SDOMXMLIterator* iterator, PredByObserved* record);
    bool ReadModelTests(SDOMXMLIterator* iterator, EffectStatData* record);

    // Fields and model terms.
    bool ReadFieldInfo(SDOMXMLWrapper* element, SubjectData* record);
    bool ReadRepeatedMeasure(SDOMXMLWrapper* element, RepeatMeasVar* record);
    bool ReadValues(const SDOMXMLWrapper& array, const KEST_Variable* variable,
                    std::vector<CFStatVariableValue>* values);
    const KEST_Variable* TargetVariable(const SDOMXMLWrapper& element);
    bool ReadRegressionParameter(SDOMXMLWrapper* element, RegressionParameter* record);
    bool ReadCovariate(SDOMXMLWrapper* element, CovariateTerm* record);
    bool ReadFactor(SDOMXMLWrapper* element, FactorTerm* record);

    // Printable lists and string maps.
    bool ReadPrintableList(SDOMXMLWrapper* element, PrintableList* record);
    bool ReadPrintableValue(SDOMXMLWrapper* element, PrintableValue* record);
    bool ReadStringMaps(SDOMXMLIterator* iterator, StringMapCollect* collect);

    // Parameter estimates.
    bool ReadParameterEstimates(SDOMXMLIterator* iterator, ParamCollect* collect);
    bool ReadParameterGroup(const SDOMXMLWrapper& element, const std::string& type, ParamGroup* group);
    bool ReadTargetValue(const SDOMXMLWrapper& element, CFStatVariableValue* value);
    bool FileParameterGroup(const SDOMXMLWrapper& element, const std::string& type, ParamGroup group,
                            ParamCollect* collect);
    bool FileRandomGroup(const SDOMXMLWrapper& element, ParamGroup group, std::vector<RandomParamBlock>* blocks);
    bool ReadParameterStats(SDOMXMLWrapper* element, ParamEstimate* record);
    bool ReadEffectIndex(const SDOMXMLWrapper& statistic, ParamEstimate* record);

    // Structured data and matrices.
    bool ReadStructuredData(SDOMXMLIterator* iterator, StructuredData* record);
    bool ReadFirstSubjectRecords(SDOMXMLWrapper* element, StructuredData* record);
    bool ReadRecordColumns(const SDOMXMLWrapper& group, StructuredData* record);
    bool ReadTargetColumn(const SDOMXMLWrapper& column, StructuredData* record);
    bool ReadRandomEffectCovariances(SDOMXMLWrapper* element, RandEffCovars* record);
    bool ReadEffectLabels(const SDOMXMLWrapper& rowColLabels, std::vector<std::string>* labels);
    bool ReadMatrix(SDOMXMLWrapper* element, MatrixData* record);
    bool ReadMatrixLabels(const SDOMXMLWrapper& element, MatrixData* record);
    bool UnpackMatrix(const SDOMXMLWrapper& element, const std::vector<double>& v, const std::string& kind, int nbCols,
                      MatrixData* record);

    // Estimated means.
    bool ParseDataGroups(SDOMXMLIterator* dataGroupElmIter);
    bool ParseCustomEmmeans(SDOMXMLWrapper* emmeansCustomElm, EmmeansData* record);
    bool ReadContinuousLabels(const SDOMXMLWrapper& block, std::vector<EmmeansLabel>* labels);
    bool ReadContinuousLabel(const SDOMXMLWrapper& entry, EmmeansLabel* record);
    static bool ReadEmmeansIndex(const SDOMXMLWrapper& statistic, int* index);
    bool ReadEmmeansTables(const SDOMXMLWrapper& block, EmmeansData* record);
    bool ReadOverallTests(const SDOMXMLWrapper& block, EmmeansData* record);
    bool ReadEmmeansMessages(const SDOMXMLWrapper& block, EmmeansData* record);
    bool ParseOverallTest(SDOMXMLWrapper* emmeansOverallTestElm, OverallTest* record);
    bool ParseEmmeansEstimates(SDOMXMLWrapper* emmeansEstiElm, EstimateData* record);
    bool ParseEmmeansContrasts(SDOMXMLWrapper* emmeansContrastElm, ContrastData* record);
    void ReadAdjustedSigLevel(const SDOMXMLWrapper& statistic, ContrastData* record);
    void ReadFactorColumns(const SDOMXMLWrapper& group, std::vector<Coordinates>* columns);
    bool ParseCoordinates(SDOMXMLWrapper* coordinatesElm, Coordinates* record);

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
    std::int64_t fFilledCells = 0;  ///< zeros that the matrices read so far were filled up with
};

}  // namespace hierfit
