#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "hierfit/store/BuildSettings.h"
#include "hierfit/store/Emmeans.h"
#include "hierfit/store/ModelDiagnostics.h"
#include "hierfit/store/ParamEstimates.h"
#include "hierfit/store/PrintableList.h"
#include "hierfit/store/StructuredData.h"
#include "hierfit/store/VarMapInfo.h"
#include "hierfit/store/WarningMessage.h"
#include "host/CFMetaData.h"
#include "host/MCPMMLParser.h"
#include "host/ParserMessage.h"

namespace hierfit {

/// The result store of one procedure run. The reader fills it, the tables and charts read it. It owns every record but
/// the field metadata, which is the host's; a record that the documents do not hold is null. One thread at a time.
class HFITOutputStats {
  public:
    /// A run must be under way on this thread: its texts come in that run's language.
    HFITOutputStats();
    ~HFITOutputStats();
    HFITOutputStats(const HFITOutputStats&) = delete;
    HFITOutputStats& operator=(const HFITOutputStats&) = delete;

    const ParserMessage* GetParserMessage() const { return fpParserMessage.get(); }
    const CFMetaData* GetMetaData() const { return fpMetaData; }
    const MCVarList* GetVarList() const { return fpVarList.get(); }
    const VarMapInfo& GetVarMapInfo() const { return fVarMapInfo; }
    BuildSettings* GetBuildSettings() const { return fpBuildSettings.get(); }
    ModelDiagnostics* GetModelDiagnostics() const { return fpModelDiagnostics.get(); }
    StructuredData* GetStructuredData() const { return fpStructuredData.get(); }
    ClassifMatrixData* GetClassifMatrixData() const { return fpClassifMatrixData.get(); }
    EffectStatData* GetEffectStatData() const { return fpEffectStatData.get(); }
    ParamCollect* GetParamCollect() const { return fpParamCollect.get(); }
    std::vector<EstimateData>* GetEmmeansEstimates() const { return fpEmmeansEstimates.get(); }
    std::vector<EmmeansData>* GetCustomEmmeans() const { return fpCustomEmmeans.get(); }
    std::vector<WarningMessage>& GetWarningList() { return fvWarningList; }
    const std::vector<WarningMessage>& GetWarningList() const { return fvWarningList; }
    StringMapCollect* GetStringMapCollect() const { return fpStringMapCollect.get(); }

    // For the reader: each makes a fresh record in place of the present one.
    MCVarList* CreateVarList();
    BuildSettings* CreateBuildSettings();
    ModelDiagnostics* CreateModelDiagnostics();
    StructuredData* CreateStructuredData();
    ClassifMatrixData* CreateClassifMatrixData();
    EffectStatData* CreateEffectStatData();
    ParamCollect* CreateParamCollect();
    std::vector<EstimateData>* CreateEmmeansEstimates();
    std::vector<EmmeansData>* CreateCustomEmmeans();
    StringMapCollect* CreateStringMapCollect();

    void RemoveBuildSettings() { fpBuildSettings.reset(); }
    void RemoveParamCollect() { fpParamCollect.reset(); }

    void SetMetaData(const CFMetaData* metaData) { fpMetaData = metaData; }

    /// Fills the variable map from the variable list and the field metadata.
    void BuildVarMap();

    /// Whether the back-end sent a message of exactly that key.
    bool HasWarning(const std::string& key) const;

    // The names of distributions, links and covariance structures: the source text, or its translation.
    std::string DistributionText(int distribution, bool translate) const;
    std::string LinkText(int link, int distribution, bool translate) const;
    std::string CovarianceText(int covarianceType, bool translate) const;

    /// The translated text of a key, its marks filled by the arguments that are not null.
    std::string Translate(const std::string& key, const char* a1 = nullptr, const char* a2 = nullptr,
                          const char* a3 = nullptr, const char* a4 = nullptr, const char* a5 = nullptr) const;

    /// The text of a printable list: its pattern, or the term that its string map has for it. False, with the text
    /// unchanged, when there is no such map or entry.
    bool PrintableText(const PrintableList& list, std::string& text) const;

    /// The text of a model term, such as "a*a*[b=1]([c=2])".
    bool RegressionParameterText(const RegressionParameter& parameter, std::string& text) const;

    /// The name of an effect of a random block; with an intercept, that is index 0. False, with the text unchanged,
    /// when the block has no such effect.
    bool RandomEffectText(const RandomSpec& spec, int effectIndex, std::string& text) const;

    /// The row label of a covariance parameter, with the key and the arguments that it is made of. The block is -1 for
    /// the residual effect. False where the label is left as it came: the list refers to a string map, has more than
    /// two arguments, or names an effect that does not exist.
    bool CovarianceParameterLabel(const PrintableList& list, int block, std::string& key,
                                  std::vector<std::string>& args, std::string& label) const;

  private:
    bool EffectVarianceArgs(const PrintableList& list, int block, std::vector<std::string>& args) const;

    std::unique_ptr<ParserMessage> fpParserMessage;
    const CFMetaData* fpMetaData = nullptr;
    std::unique_ptr<MCVarList> fpVarList;
    VarMapInfo fVarMapInfo;
    std::unique_ptr<BuildSettings> fpBuildSettings;
    std::unique_ptr<ModelDiagnostics> fpModelDiagnostics;
    std::unique_ptr<StructuredData> fpStructuredData;
    std::unique_ptr<ClassifMatrixData> fpClassifMatrixData;
    std::unique_ptr<EffectStatData> fpEffectStatData;
    std::unique_ptr<ParamCollect> fpParamCollect;
    std::unique_ptr<std::vector<EstimateData>> fpEmmeansEstimates;
    std::unique_ptr<std::vector<EmmeansData>> fpCustomEmmeans;
    std::vector<WarningMessage> fvWarningList;
    std::unique_ptr<StringMapCollect> fpStringMapCollect;

    mutable std::size_t fTermCharacters = 0;  ///< in labels so far

    // The keys of the first `fIndexedWarnings` messages; messages are appended and never removed.
    mutable std::unordered_set<std::string> fWarningKeys;
    mutable std::size_t fIndexedWarnings = 0;
};

/// The pattern that shows a link with its parameter; empty for a link that takes none.
std::string LinkPattern(int link, int distribution);

}  // namespace hierfit
