#include "Commands.h"

#include <malloc.h>
#include <unistd.h>

#include <string>

#include "Documents.h"
#include "OutputFile.h"
#include "Pager.h"
#include "PictureFiles.h"
#include "StandardError.h"
#include "Terminal.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonDocument.h"
#include "report/style/Style.h"
#include "report/text/TextReport.h"

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

/// What readers see is restyled; a document that is saved keeps its words.
std::string Render(document::Document& document, const OutputOptions& output, Format format) {
    if (format != Format::Json) report::style::ApplyPlain(document);
    switch (format) {
        case Format::Text:
            return report::MakeTextReport(document, ChooseTextOptions(output, GoesToTerminal(output)));
        case Format::Json:
            return report::WriteJson(document);
        case Format::Html:
        case Format::Svg:
        case Format::Png:
            break;
    }
    return report::MakeHtmlReport(
        document, {output.fIsStatic ? report::Scripts::No : report::Scripts::Yes, output.fTitle, output.fAuthor});
}

int WriteCharts(const document::Document& document, const OutputOptions& output) {
    const auto format = output.fFormat == Format::Png ? MakePngFormat(output.fScale) : MakeSvgFormat();
    if (const auto* error = std::get_if<FileError>(&format)) return Fail(kMissingPart, error->fText);
    int status = kWritten;
    for (const FileError& error :
         WritePictures(report::MakePictures(document), std::get<PictureFormat>(format), output.fFile)) {
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
    if (IsPictures(format)) return WriteCharts(document, output);
    const std::string text = Render(document, output, format);
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
