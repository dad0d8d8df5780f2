#include "host/session/Session.h"

#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <utility>
#include <variant>

#include "host/BpProcedure.h"
#include "host/CFProcCustom.h"
#include "host/context/RunContext.h"
#include "host/framework/MissText.h"
#include "host/language/Catalogue.h"
#include "host/plausible/Plausible.h"
#include "host/pmml/Dictionary.h"
#include "host/session/BackEndMessages.h"
#include "host/session/Module.h"
#include "host/session/Paths.h"

namespace hierfit::session {

namespace {

constexpr const char* kProducer = "hierfit " HIERFIT_VERSION;
constexpr const char* kTitle = "Generalized Linear Mixed Models";
constexpr const char* kNoCatalogue = "C";

std::string LastComponent(const std::string& path) { return std::filesystem::path(path).filename().string(); }

/// Everything that one run needs beside the procedure.
class Host {
  public:
    Host(const Paths& paths, const Settings& settings, std::unique_ptr<language::Catalogue> catalogue)
        : fpCatalogue(std::move(catalogue)), fContext(settings, fpCatalogue.get(), paths.fShareDirectory) {}

    context::RunContext& GetContext() { return fContext; }

    void Describe(const Input& pmml, const Input& statXml) {
        document::Document& document = fContext.GetDocument();
        document.fProducer = kProducer;
        document.fLanguage = fContext.GetSettings().fLanguage;
        document.fTitle = fContext.Translate(kTitle);
        document.fvSources = {LastComponent(pmml.fName), LastComponent(statXml.fName)};
    }

    /// Data source and metadata; without fields when the document has none, and then the diagnostics say why.
    void OpenFields(const std::string& pmml) {
        auto read = pmml::Dictionary::Read(pmml);
        if (const auto* error = std::get_if<pmml::ReadError>(&read)) {
            fContext.AddDiagnostic(3, error->fText,
                                   document::Place{document::kPmmlSource, error->fLine, error->fColumn});
            read = pmml::Dictionary();
        }
        fpDataSource = pmml::MakeDataSource(std::get<pmml::Dictionary>(read));
        fContext.SetDataSource(fpDataSource.get());
        fpMetaData = pmml::MakeMetaData(std::get<pmml::Dictionary>(read));
    }

    bool RunProcedure(CFProcCustomFactory factory, std::string pmml, std::string statXml) {
        const context::RunContext::Activation activation(fContext);
        const std::unique_ptr<CFProcCustom> procedure(factory());
        if (!procedure) throw std::bad_alloc();
        BpProcedure output;
        procedure->fProcedure = &output;
        procedure->fDataSource = fpDataSource.get();
        procedure->fMetaData = fpMetaData.get();
        std::vector<std::string> texts{std::move(pmml)};
        std::vector<StatXMLBlock> blocks{{std::move(statXml)}};
        std::string summary;
        const bool isIssued =
            procedure->AcceptRun(nullptr, nullptr) && procedure->ProcessDocuments(texts, blocks, summary);
        if (fContext.fIsMemoryShort) throw std::bad_alloc();
        return isIssued;
    }

    void TellContradictions() {
        const std::shared_ptr<const xml::Document>& statXml = fContext.GetLastXml();
        if (!statXml) return;
        for (plausible::Finding& finding : plausible::FindContradictions(*statXml, fContext.GetSettings().fTellsAll)) {
            if (!fContext.TakeRoomForWarning()) return;
            const auto [line, column] = finding.fPosition;
            fContext.AddDiagnostic(2, std::move(finding.fText),
                                   document::Place{document::kStatXmlSource, line, column});
        }
    }

    void TellUnseenMessages() { fUnseenMessages = DiagnoseUnseenMessages(fContext); }

    std::size_t CountUnseenMessages() const { return fUnseenMessages; }

  private:
    std::unique_ptr<language::Catalogue> fpCatalogue;
    context::RunContext fContext;
    std::size_t fUnseenMessages = 0;
    std::unique_ptr<ProcedureDataSource> fpDataSource;
    std::unique_ptr<CFMetaData> fpMetaData;
};

/// Sees to it that a failed read has an error among its diagnostics that tells where and why.
void ExplainFailure(context::RunContext& context) {
    std::vector<document::Diagnostic>& diagnostics = context.GetDocument().fvDiagnostics;
    if (auto miss = framework::DescribeMiss(context)) {
        context.AddDiagnostic(miss->fLevel, std::move(miss->fText), miss->fPlace);
    } else if (diagnostics.empty()) {
        context.AddDiagnostic(3, "the document could not be read", document::Place{document::kStatXmlSource, 1, 1});
    } else {
        diagnostics.back().fLevel = 3;
    }
}

Result NotSetUp(std::string reason) {
    Result result{Outcome::NotSetUp, {}, 0};
    result.fDocument.fvDiagnostics.push_back({3, std::move(reason), {}});
    return result;
}

bool RunGuarded(Host& host, CFProcCustomFactory factory, Input& pmml, Input& statXml) {
    try {
        host.OpenFields(pmml.fText);
        if (statXml.fText.empty()) {
            host.GetContext().AddDiagnostic(3, "the document is empty",
                                            document::Place{document::kStatXmlSource, 1, 1});
        }
        if (!host.RunProcedure(factory, std::move(pmml.fText), std::move(statXml.fText))) return false;
        host.TellContradictions();
        host.TellUnseenMessages();
        return true;
    } catch (const std::bad_alloc&) {
        throw;  // to say it in the document would take memory
    } catch (const std::exception& error) {
        host.GetContext().AddDiagnostic(3, std::string("the run broke off: ") + error.what(), {});
        return false;
    }
}

}  // namespace

Result Run(Input pmml, Input statXml, const Settings& settings) {
    const Paths paths = FindPaths();
    std::unique_ptr<language::Catalogue> catalogue;
    if (settings.fLanguage != kNoCatalogue) {
        const std::string path = paths.LanguageFolder() + "/" + settings.fLanguage + ".mo";
        catalogue = language::Catalogue::Open(path);
        if (!catalogue)
            return NotSetUp("there is no readable catalogue " + path + "; install hierfit again, with its languages");
    }
    const auto module = LoadModule(paths.fModule);
    if (const auto* reason = std::get_if<std::string>(&module))
        return NotSetUp(*reason + "; install hierfit again, with its procedure");

    Host host(paths, settings, std::move(catalogue));
    host.Describe(pmml, statXml);
    const bool issued = RunGuarded(host, std::get<CFProcCustomFactory>(module), pmml, statXml);
    if (!issued) ExplainFailure(host.GetContext());
    return {issued ? Outcome::Issued : Outcome::Unreadable, std::move(host.GetContext().GetDocument()),
            host.CountUnseenMessages()};
}

std::vector<std::string> Languages() { return language::ListLanguages(FindPaths().LanguageFolder()); }

}  // namespace hierfit::session
