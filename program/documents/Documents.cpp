#include "program/documents/Documents.h"

#include <fmt/format.h>

#include <utility>

#include "host/unicode/Excerpt.h"
#include "program/documents/FindDocuments.h"
#include "program/documents/Suggestion.h"
#include "program/files/ExitStatus.h"
#include "program/files/StandardError.h"
#include "report/json/JsonDocument.h"

namespace hierfit::program {

namespace {

constexpr std::size_t kLargestDocument = std::size_t{256} << 20;
constexpr std::size_t kLargestSaved = std::size_t{1} << 30;

std::string DescribeJsonError(const std::string& file, const report::JsonError& error) {
    if (error.fLine > 0) return fmt::format("{}:{}:{}: {}", file, error.fLine, error.fColumn, error.fText);
    return fmt::format("{}: {}: {}", file, error.fPath.empty() ? "/" : error.fPath, error.fText);
}

}  // namespace

std::variant<ModelRun, FileError> RunModel(const std::vector<std::string>& documents,
                                           const session::Settings& settings) {
    auto found = FindDocuments(documents);
    if (auto* error = std::get_if<FileError>(&found)) return std::move(*error);
    auto& paths = std::get<std::vector<std::string>>(found);
    std::vector<session::Input> inputs;
    for (std::string& path : paths) {
        auto text = ReadFile(path, kLargestDocument);
        if (auto* error = std::get_if<FileError>(&text)) return std::move(*error);
        if (path == "-") path = "standard input";
        inputs.push_back({path, std::get<std::string>(std::move(text))});
    }
    if (std::string swap = DescribeSwap(paths, inputs[0].fText, inputs[1].fText); !swap.empty()) {
        return FileError{std::move(swap)};
    }
    session::Result result = session::Run(std::move(inputs[0]), std::move(inputs[1]), settings);
    return ModelRun{std::move(paths), std::move(result)};
}

void PrintRun(const ModelRun& run) {
    const bool isIssued = run.fResult.fOutcome == session::Outcome::Issued;
    PrintMessages(run.fResult.fDocument.fItems);
    PrintDiagnostics(run.fResult.fDocument, run.fvPaths, isIssued ? kWarning : kInformation);
}

int TellFailure(const ModelRun& run) {
    if (run.fResult.fOutcome == session::Outcome::NotSetUp) {
        PrintError(run.fResult.fDocument.fvDiagnostics.front().fText);
        return kMissingPart;
    }
    PrintRun(run);
    return kUnreadable;
}

std::variant<document::Document, FileError> ReadSaved(const std::string& path) {
    if (path != "-" && !Exists(path)) return DescribeMissing(path);
    const auto text = ReadFile(path, kLargestSaved);
    if (const auto* error = std::get_if<FileError>(&text)) return *error;
    auto document = report::ReadJson(std::get<std::string>(text));
    if (const auto* error = std::get_if<report::JsonError>(&document)) {
        const std::string name = path == "-" ? "standard input" : unicode::Excerpt(path, kMostOfText);
        return FileError{DescribeJsonError(name, *error)};
    }
    return std::get<document::Document>(std::move(document));
}

}  // namespace hierfit::program
