#include "ReportFiles.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

#include "OutputFile.h"
#include "Rendering.h"
#include "StandardError.h"
#include "host/unicode/Excerpt.h"
#include "report/formats/Files.h"
#include "report/formats/Render.h"

namespace hierfit::program {

namespace {

using report::FileMaker;
using report::RenderError;

WriteFailure MakeFailure(const RenderError& error) { return {StatusOf(error.fFault), error.fText}; }

std::vector<WriteFailure> WriteFiles(const std::vector<FileMaker>& files, const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return {{kUnwritable, unicode::Excerpt(folder, kMostOfText) + ": " + error.message()}};
    std::vector<WriteFailure> failures;
    for (const FileMaker& file : files) {
        const std::string path = (std::filesystem::path(folder) / file.fName).string();
        const auto made = file.fMake();
        if (const auto* fault = std::get_if<RenderError>(&made)) {
            failures.push_back({StatusOf(fault->fFault), unicode::Excerpt(path, kMostOfText) + ": " + fault->fText});
        } else if (auto failure = WriteOutput(path, std::get<std::string>(made))) {
            failures.push_back({kUnwritable, std::move(failure->fText)});
            break;
        }
    }
    return failures;
}

std::vector<WriteFailure> WriteFolder(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& folder) {
    const auto files = report::ListFiles(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&files)) return {MakeFailure(*error)};
    return WriteFiles(std::get<std::vector<FileMaker>>(files), folder);
}

}  // namespace

std::vector<WriteFailure> WriteReport(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& path) {
    if (report::IsPictures(format)) return WriteFolder(document, format, settings, path);
    const auto rendered = report::Render(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&rendered)) return {MakeFailure(*error)};
    if (const auto error = WriteOutput(path, std::get<std::string>(rendered))) {
        return {{error->fIsClosedPipe ? kClosedPipe : kUnwritable, error->fText}};
    }
    return {};
}

}  // namespace hierfit::program
