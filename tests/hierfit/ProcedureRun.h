#pragma once

#include <memory>
#include <string>

#include "hierfit/HFITProcCustom.h"
#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/store/HFITOutputStats.h"
#include "host/context/RunContext.h"
#include "host/pmml/Dictionary.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {

/// A run of the procedure on two texts, without the module and, without a translator, in the language of the source
/// texts.
class ProcedureRun {
  public:
    explicit ProcedureRun(std::string pmml = kSamplePmml, const context::Translator* translator = nullptr)
        : fPmml(std::move(pmml)),
          fDictionary(std::get<pmml::Dictionary>(pmml::Dictionary::Read(fPmml))),
          fContext({}, translator, HIERFIT_SHARE) {}

    /// A procedure with what the host gives it. It must not outlive the run.
    std::unique_ptr<CFProcCustom> MakeProcedure() {
        auto procedure = std::make_unique<HFITProcCustom>();
        procedure->fProcedure = &fOutput;
        procedure->fDataSource = fpDataSource.get();
        procedure->fMetaData = fpMetaData.get();
        return procedure;
    }

    /// Runs the whole procedure.
    bool Run(const std::string& statXml) { return MakeProcedure()->ProduceOutput(fPmml, {statXml}); }

    /// Reads both documents into a store.
    bool Read(const std::string& statXml, HFITOutputStats& stats) {
        stats.SetMetaData(fpMetaData.get());
        return HFITParseOutXML(fpDataSource.get(), &stats, fPmml, statXml).Parse();
    }

    KEST_DataSource* GetDataSource() const { return fpDataSource.get(); }
    const CFMetaData* GetMetaData() const { return fpMetaData.get(); }
    BpProcedure& GetOutput() { return fOutput; }

    /// Whether the host remembers a look-up that failed since the last diagnostic.
    bool HasMiss() const { return fContext.GetMiss() != nullptr; }

    const std::list<document::Item>& GetItems() { return fContext.GetDocument().fItems; }

    /// The texts of the diagnostics that begin with a text, one a line.
    std::string Diagnostics(std::string_view begin = "") {
        std::string texts;
        for (const document::Diagnostic& diagnostic : fContext.GetDocument().fvDiagnostics) {
            if (diagnostic.fText.starts_with(begin)) texts += diagnostic.fText + "\n";
        }
        return texts;
    }

  private:
    std::string fPmml;
    pmml::Dictionary fDictionary;
    std::unique_ptr<ProcedureDataSource> fpDataSource = pmml::MakeDataSource(fDictionary);
    std::unique_ptr<CFMetaData> fpMetaData = pmml::MakeMetaData(fDictionary);
    context::RunContext fContext;
    context::RunContext::Activation fActivation{fContext};
    BpProcedure fOutput;
};

}  // namespace hierfit::test
