#include "Check.h"

#include <algorithm>

#include "ItemIndex.h"
#include "MissingItems.h"
#include "Pager.h"
#include "program/documents/Documents.h"
#include "program/files/ExitStatus.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "report/text/VisibleText.h"

namespace hierfit::program {

namespace {

std::vector<std::string> MakeRemarks(const ModelRun& run) {
    const document::Document& document = run.fResult.fDocument;
    // Messages about the model are no remarks, but where there are no estimates they say why.
    const bool hasEstimates = ItemIndex(document.fItems).FindTable("FixedCoefficients");
    const std::size_t nMessages = hasEstimates ? run.fResult.fUnseenMessages : 0;
    std::vector<std::string> remarks;
    for (std::size_t i = 0; i + nMessages < document.fvDiagnostics.size(); ++i)
        remarks.push_back(DescribeDiagnostic(document.fvDiagnostics[i], run.fvPaths));
    for (std::string& missing : DescribeMissingItems(document)) remarks.push_back(std::move(missing));
    return remarks;
}

/// A remark stands on one line, whatever it quotes.
std::string MakeLine(std::string remark) {
    std::ranges::replace(remark, '\n', ' ');
    return report::MakeVisible(remark) + "\n";
}

}  // namespace

int Run(const CheckCommand& command) {
    session::Settings settings;
    settings.fTellsAll = true;
    const auto run = RunModel(command.fvDocuments, settings);
    if (const auto* error = std::get_if<FileError>(&run)) {
        PrintError(error->fText);
        return kUnreadable;
    }
    const auto& model = std::get<ModelRun>(run);
    if (model.fResult.fOutcome != session::Outcome::Issued) return TellFailure(model);
    std::string lines;
    for (std::string& remark : MakeRemarks(model)) lines += MakeLine(std::move(remark));
    const int status = Conclude(WriteForReader(lines, command.fHasPager));
    return status == kWritten && command.fIsStrict && !lines.empty() ? kUnreadable : status;
}

}  // namespace hierfit::program
