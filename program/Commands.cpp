#include "Commands.h"

#include <fmt/format.h>
#include <unistd.h>

#include <optional>
#include <utility>

#include "Files.h"
#include "OutputFile.h"
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

/// What readers see is restyled; a document that is saved keeps its words.
std::string Render(document::Document& document, const OutputOptions& output) {
    const bool isTerminal = output.fFile == kStandardOutput && isatty(STDOUT_FILENO) == 1;
    const Format format = ChooseFormat(output, isTerminal);
    if (format != Format::Json) report::style::Apply(report::style::Style::Plain, document);
    switch (format) {
        case Format::Text:
            return report::MakeTextReport(document, ChooseTextOptions(output.fColor, isTerminal));
        case Format::Json:
            return report::WriteJson(document);
        case Format::Html:
        case Format::Svg:
        case Format::Png:
            break;
    }
    return report::MakeHtmlReport(document, output.fIsStatic ? report::Scripts::No : report::Scripts::Yes);
}

int WriteCharts(const document::Document& document, const OutputOptions& output) {
    const auto format = output.fFormat == Format::Png ? MakePngFormat(output.fScale) : MakeSvgFormat();
    if (const auto* error = std::get_if<FileError>(&format)) return Fail(kPartMissing, error->fText);
    int status = kWritten;
    for (const FileError& error :
         WritePictures(report::MakePictures(document), std::get<PictureFormat>(format), output.fFile)) {
        status = Fail(kUnwritable, error.fText);
    }
    return status;
}

int Write(document::Document& document, const OutputOptions& output) {
    if (output.fFormat && IsPictures(*output.fFormat)) return WriteCharts(document, output);
    if (const auto error = WriteOutput(output.fFile, Render(document, output))) return Fail(kUnwritable, error->fText);
    return kWritten;
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
