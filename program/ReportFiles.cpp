#include "ReportFiles.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

#include "Rendering.h"
#include "host/unicode/Excerpt.h"
#include "program/files/OutputFile.h"
#include "program/files/StandardError.h"
#include "report/formats/Files.h"
#include "report/formats/Render.h"

namespace hierfit::program {

namespace {

using report::FileMaker;
using report::RenderError;

WriteFailure MakeFailure(const RenderError& error) { return {StatusOf(error.fFault), error.fText}; }

std::vector<WriteFailure> WriteFiles(const std::vector<FileMaker>& files, const std::string& folder,
                                     ProgressLine* progress) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return {{kUnwritable, unicode::Excerpt(folder, kMostOfText) + ": " + error.message(), true}};
    std::vector<WriteFailure> failures;
    for (const FileMaker& file : files) {
        if (progress) progress->Show(fmt::format("{} of {} files", &file - files.data(), files.size()));
        const std::string path = (std::filesystem::path(folder) / file.fName).string();
        const auto made = file.fMake();
        if (const auto* fault = std::get_if<RenderError>(&made)) {
            failures.push_back({StatusOf(fault->fFault), unicode::Excerpt(path, kMostOfText) + ": " + fault->fText});
        } else if (auto failure = WriteOutput(path, std::get<std::string>(made))) {
            failures.push_back({kUnwritable, std::move(failure->fText), true});
            break;
        }
    }
    return failures;
}

std::vector<WriteFailure> WriteFolder(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& folder,
                                      ProgressLine* progress) {
    const auto files = report::ListFiles(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&files)) return {MakeFailure(*error)};
    return WriteFiles(std::get<std::vector<FileMaker>>(files), folder, progress);
}

std::vector<WriteFailure> WriteFile(const document::Document& document, Format format,
                                    const report::RenderSettings& settings, const std::string& path) {
    const auto rendered = report::Render(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&rendered)) return {MakeFailure(*error)};
    if (const auto error = WriteOutput(path, std::get<std::string>(rendered))) {
        return {{error->fIsClosedPipe ? kClosedPipe : kUnwritable, error->fText}};
    }
    return {};
}

/// The charts come first, so that none is missing where there is a file. Without any there is no folder for them.
std::vector<WriteFailure> WriteFileAndCharts(const document::Document& document, Format format,
                                             report::RenderSettings settings, const std::filesystem::path& path,
                                             ProgressLine* progress) {
    settings.fChartFolder = path.stem().string() + "-charts";
    const std::string folder = (path.parent_path() / settings.fChartFolder).string();
    const auto charts = report::ListFiles(document, format, settings);
    std::vector<WriteFailure> failures;
    if (const auto* error = std::get_if<RenderError>(&charts)) {
        failures.push_back(MakeFailure(*error));
    } else if (const auto& files = std::get<std::vector<FileMaker>>(charts); !files.empty()) {
        failures = WriteFiles(files, folder, progress);
    }
    if (!failures.empty() && failures.back().fIsLast) return failures;
    for (WriteFailure& failure : WriteFile(document, format, settings, path.string())) {
        failures.push_back(std::move(failure));
    }
    return failures;
}

}  // namespace

std::vector<WriteFailure> WriteReport(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& path,
                                      ProgressLine* progress) {
    const bool hasPlace = path != "-";
    const report::Extent extent = report::ExtentOf(format);
    if (hasPlace && extent == report::Extent::Folder) return WriteFolder(document, format, settings, path, progress);
    if (hasPlace && extent == report::Extent::FileAndCharts) {
        return WriteFileAndCharts(document, format, settings, path, progress);
    }
    return WriteFile(document, format, settings, path);
}

}  // namespace hierfit::program
