#include "Commands.h"

#include <malloc.h>
#include <unistd.h>

#include <string>

#include "Documents.h"
#include "OutputFile.h"
#include "Pager.h"
#include "PictureFiles.h"
#include "Rendering.h"
#include "StandardError.h"
#include "Terminal.h"
#include "report/charts/Pictures.h"
#include "report/formats/PictureFormat.h"
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

int Fail(const report::RenderError& error) { return Fail(StatusOf(error.fFault), error.fText); }

int WriteCharts(const document::Document& document, const report::PictureFormat& format, const std::string& folder) {
    int status = kWritten;
    for (const FileError& error : WritePictures(report::MakePictures(document), format, folder)) {
        status = Fail(kUnwritable, error.fText);
    }
    return status;
}

/// Text that is too long for the terminal goes through a pager, if there is one that can be started.
bool IsShownByPager(std::string_view text, const OutputOptions& output, Format format) {
    if (format != Format::Text || !output.fHasPager || !GoesToTerminal(output)) return false;
    if (!IsLongerThanScreen(text)) return false;
    const std::optional<std::string> pager = FindPager();
    return pager && ShowWithPager(*pager, text);
}

int Write(document::Document& document, const OutputOptions& output) {
    const Format format = ChooseFormat(output, GoesToTerminal(output));
    const report::RenderSettings settings = MakeRenderSettings(output, GoesToTerminal(output));
    if (const auto error = report::Prepare(document, format, settings)) return Fail(*error);
    if (report::IsPictures(format)) {
        const auto made = report::MakePictureFormat(format, settings);
        if (const auto* error = std::get_if<report::RenderError>(&made)) return Fail(*error);
        return WriteCharts(document, std::get<report::PictureFormat>(made), output.fFile);
    }
    const auto rendered = report::Render(document, format, settings);
    if (const auto* error = std::get_if<report::RenderError>(&rendered)) return Fail(*error);
    const std::string& text = std::get<std::string>(rendered);
    if (IsShownByPager(text, output, format)) return kWritten;
    return Conclude(WriteOutput(output.fFile, text));
}

}  // namespace

int Run(const ReportCommand& command) {
    auto run = RunModel(command.fvDocuments, command.fSettings);
    if (const auto* error = std::get_if<FileError>(&run)) return Fail(kUnreadable, error->fText);
    auto& model = std::get<ModelRun>(run);
    if (model.fResult.fOutcome != session::Outcome::Issued) return TellFailure(model);
    PrintRun(model);
    malloc_trim(0);  // What was read is gone; its memory is not lost to what is rendered.
    return Write(model.fResult.fDocument, command.fOutput);
}

int Run(const RenderCommand& command) {
    auto document = ReadSaved(command.fDocument);
    if (const auto* error = std::get_if<FileError>(&document)) return Fail(kUnreadable, error->fText);
    return Write(std::get<document::Document>(document), command.fOutput);
}

}  // namespace hierfit::program
