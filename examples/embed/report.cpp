// Writes the report of a model in any format: report MODEL.pmml MODEL.statxml FORMAT FOLDER. It writes FOLDER/report
// with the format's ending, files of charts or tables beside it, or both. FOLDER must be there.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>

#include "host/session/Paths.h"
#include "host/session/Session.h"
#include "report/formats/Files.h"
#include "report/formats/Format.h"
#include "report/formats/Render.h"

namespace report = hierfit::report;
namespace session = hierfit::session;

namespace {

std::string ReadWhole(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Writes what was rendered, or tells why it could not be.
bool Write(const std::variant<std::string, report::RenderError>& rendered, const std::filesystem::path& path) {
    if (const auto* error = std::get_if<report::RenderError>(&rendered)) {
        std::fprintf(stderr, "%s\n", error->fText.c_str());
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file << std::get<std::string>(rendered);
    return file.good();
}

bool WriteFiles(const hierfit::document::Document& document, report::Format format,
                const report::RenderSettings& settings, const std::filesystem::path& folder) {
    const auto files = report::ListFiles(document, format, settings);
    if (const auto* error = std::get_if<report::RenderError>(&files)) return Write(*error, folder);
    for (const report::FileMaker& file : std::get<std::vector<report::FileMaker>>(files)) {
        if (!Write(file.fMake(), folder / file.fName)) return false;
    }
    return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const auto format = argumentCount == 5 ? report::FindFormat(arguments[3]) : std::nullopt;
    if (!format) return 1;
    session::Result result =
        session::Run({arguments[1], ReadWhole(arguments[1])}, {arguments[2], ReadWhole(arguments[2])}, {});
    if (result.fOutcome != session::Outcome::Issued) return 2;

    report::RenderSettings settings;
    settings.fModuleFolder = session::FindPaths().fModuleFolder;
    if (report::Prepare(result.fDocument, *format, settings)) return 1;
    const std::filesystem::path folder = arguments[4];
    const report::Extent extent = report::ExtentOf(*format);
    if (extent != report::Extent::Folder) {
        const std::filesystem::path file = folder / ("report" + std::string(report::EndingOf(*format)));
        if (!Write(report::Render(result.fDocument, *format, settings), file)) return 3;
    }
    const bool isAlone = extent == report::Extent::File;
    return isAlone || WriteFiles(result.fDocument, *format, settings, folder) ? 0 : 3;
}
