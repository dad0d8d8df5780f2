#include "Commands.h"

#include <fmt/format.h>
#include <unistd.h>

#include <optional>
#include <utility>

#include "Files.h"
#include "OutputFile.h"
#include "Pager.h"
#include "PictureFiles.h"
#include "StandardError.h"
#include "Terminal.h"
#include "host/unicode/Excerpt.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonDocument.h"
#include "report/style/Style.h"
#include "report/text/TextReport.h"

namespace hierfit::program {

namespace {

constexpr std::size_t kLargestDocument = std::size_t{256} << 20;
constexpr std::size_t kLargestSaved = std::size_t{1} << 30;
constexpr const char* kStandardOutput = "-";

int Fail(ExitStatus status, const std::string& text) {
    PrintError(text);
    return status;
}

struct Paths {
    std::string fPmml;
    std::string fStatXml;
};

std::variant<Paths, std::string> FindDocuments(const std::vector<std::string>& documents) {
    if (documents.size() == 2) return Paths{documents[0], documents[1]};
    const std::string& folder = documents.front();
    if (!IsFolder(folder))
        return unicode::Excerpt(folder, kMostOfText) +
               ": one argument must be a folder with model.pmml and model.statxml";
    const std::string base = folder.ends_with('/') ? folder : folder + "/";
    return Paths{base + "model.pmml", base + "model.statxml"};
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
    if (format != Format::Json) report::style::Apply(report::style::Style::Plain, document);
    switch (format) {
        case Format::Text:
            return report::MakeTextReport(document, ChooseTextOptions(output, GoesToTerminal(output)));
        case Format::Json:
            return report::WriteJson(document);
        case Format::Html:
        case Format::Svg:
            break;
    }
    return report::MakeHtmlReport(document, output.fIsStatic ? report::Scripts::No : report::Scripts::Yes);
}

/// Text that is too long for the terminal goes through a pager, if there is one that can be started.
bool IsShownByPager(std::string_view text, const OutputOptions& output, Format format) {
    if (format != Format::Text || !output.fHasPager || !GoesToTerminal(output)) return false;
    if (!IsLongerThanScreen(text)) return false;
    const std::optional<std::string> pager = FindPager();
    return pager && ShowWithPager(*pager, text);
}

int Conclude(const std::optional<FileError>& error) {
    if (!error) return kWritten;
    return error->fIsClosedPipe ? kClosedPipe : Fail(kUnwritable, error->fText);
}

int Write(document::Document& document, const OutputOptions& output) {
    const Format format = ChooseFormat(output, GoesToTerminal(output));
    if (format == Format::Svg) return Conclude(WritePictures(report::MakePictures(document), output.fFile));
    const std::string text = Render(document, output, format);
    if (IsShownByPager(text, output, format)) return kWritten;
    return Conclude(WriteOutput(output.fFile, text));
}

std::string DescribeJsonError(const std::string& file, const report::JsonError& error) {
    if (error.fLine > 0) return fmt::format("{}:{}:{}: {}", file, error.fLine, error.fColumn, error.fText);
    return fmt::format("{}: {}: {}", file, error.fPath.empty() ? "/" : error.fPath, error.fText);
}

}  // namespace

int Run(const ReportCommand& command) {
    const auto documents = FindDocuments(command.fvDocuments);
    if (const auto* wrong = std::get_if<std::string>(&documents)) return Fail(kUnreadable, *wrong);
    const Paths& paths = std::get<Paths>(documents);

    auto pmml = ReadFile(paths.fPmml, kLargestDocument);
    if (const auto* error = std::get_if<FileError>(&pmml)) return Fail(kUnreadable, error->fText);
    auto statXml = ReadFile(paths.fStatXml, kLargestDocument);
    if (const auto* error = std::get_if<FileError>(&statXml)) return Fail(kUnreadable, error->fText);

    session::Result result =
        session::Run({paths.fPmml, std::get<std::string>(std::move(pmml))},
                     {paths.fStatXml, std::get<std::string>(std::move(statXml))}, command.fSettings);
    if (result.fOutcome == session::Outcome::NotSetUp) {
        return Fail(kMissingPart, result.fDocument.fvDiagnostics.front().fText);
    }
    const bool isIssued = result.fOutcome == session::Outcome::Issued;
    PrintMessages(result.fDocument.fItems);
    PrintDiagnostics(result.fDocument, {paths.fPmml, paths.fStatXml}, isIssued ? kWarning : kInformation);
    if (!isIssued) return kUnreadable;
    return Write(result.fDocument, command.fOutput);
}

int Run(const RenderCommand& command) {
    const auto text = ReadFile(command.fDocument, kLargestSaved);
    if (const auto* error = std::get_if<FileError>(&text)) return Fail(kUnreadable, error->fText);
    auto document = report::ReadJson(std::get<std::string>(text));
    if (const auto* error = std::get_if<report::JsonError>(&document)) {
        const std::string name =
            command.fDocument == "-" ? "standard input" : unicode::Excerpt(command.fDocument, kMostOfText);
        return Fail(kUnreadable, DescribeJsonError(name, *error));
    }
    return Write(std::get<document::Document>(document), command.fOutput);
}

}  // namespace hierfit::program
