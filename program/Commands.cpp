#include "Commands.h"

#include <fmt/format.h>
#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <new>
#include <string>
#include <system_error>
#include <variant>

#include "Pager.h"
#include "Rendering.h"
#include "ReportFiles.h"
#include "Terminal.h"
#include "program/documents/Documents.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "report/formats/Render.h"

namespace hierfit::program {

namespace {

constexpr const char* kStandardOutput = "-";

int Fail(ExitStatus status, const std::string& text) {
    PrintError(text);
    return status;
}

Format ChooseFormat(const OutputOptions& output, bool isTerminal) {
    if (output.fFormat) return *output.fFormat;
    return isTerminal ? Format::Text : Format::Html;
}

bool GoesToTerminal(const OutputOptions& output) {
    return output.fFile == kStandardOutput && isatty(STDOUT_FILENO) == 1;
}

/// Says what went wrong, but for a closed pipe, which ends silently.
int Conclude(const std::vector<WriteFailure>& failures) {
    int status = kWritten;
    for (const WriteFailure& failure : failures) {
        status = failure.fStatus == kClosedPipe ? kClosedPipe : Fail(failure.fStatus, failure.fText);
    }
    return status;
}

int WriteRendered(document::Document& document, const OutputOptions& output) {
    const bool isTerminal = GoesToTerminal(output);
    const Format format = ChooseFormat(output, isTerminal);
    report::RenderSettings settings = MakeRenderSettings(output, isTerminal);
    if (const auto error = report::Prepare(document, format, settings)) {
        return Fail(StatusOf(error->fFault), error->fText);
    }
    if (!isTerminal || format != Format::Text) {
        ProgressLine progress(ProgressLine::Begin::Late);
        settings.fOnPicture = [&progress, number = 0]() mutable { progress.Show(fmt::format("picture {}", ++number)); };
        const std::vector<WriteFailure> failures = WriteReport(document, format, settings, output.fFile, &progress);
        progress.Erase();
        return Conclude(failures);
    }
    const std::string text = std::get<std::string>(report::Render(document, format, settings));
    return Conclude(WriteForReader(text, output.fHasPager));
}

/// On a terminal, where reports stand one below the other, the title of a folder's report says which it is. Elsewhere a
/// title is the document's own, so that a saved document looks as a fresh one does.
void TitleByFolder(document::Document& document, const ReportCommand& command) {
    const bool isTerminal = GoesToTerminal(command.fOutput);
    if (!isTerminal || ChooseFormat(command.fOutput, isTerminal) != Format::Text) return;
    if (command.fvDocuments.size() != 1) return;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::canonical(command.fvDocuments.front(), error);
    if (error == std::errc::not_enough_memory) throw std::bad_alloc();
    if (!error && folder.has_filename()) document.fTitle = folder.filename().string() + ": " + document.fTitle;
}

int Write(document::Document& document, const OutputOptions& output) {
    try {
        return WriteRendered(document, output);
    } catch (const std::bad_alloc&) {
        PrintShortMemory();
        return kUnwritable;
    }
}

}  // namespace

int Run(const ReportCommand& command) {
    auto run = RunModel(command.fvDocuments, command.fSettings);
    if (const auto* error = std::get_if<FileError>(&run)) return Fail(kUnreadable, error->fText);
    auto& model = std::get<ModelRun>(run);
    if (model.fResult.fOutcome != session::Outcome::Issued) return TellFailure(model);
    PrintRun(model);
    TitleByFolder(model.fResult.fDocument, command);
    malloc_trim(0);  // What was read is gone; its memory is not lost to what is rendered.
    return Write(model.fResult.fDocument, command.fOutput);
}

int Run(const RenderCommand& command) {
    auto document = ReadSaved(command.fvDocuments.front());
    if (const auto* error = std::get_if<FileError>(&document)) return Fail(kUnreadable, error->fText);
    return Write(std::get<document::Document>(document), command.fOutput);
}

}  // namespace hierfit::program
