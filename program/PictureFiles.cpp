#include "PictureFiles.h"

#include <filesystem>
#include <system_error>

#include "OutputFile.h"
#include "StandardError.h"
#include "host/session/Paths.h"

namespace hierfit::program {

namespace {

constexpr const char* kModule = "libhierfit_pictures.so";

}  // namespace

report::Pictures DrawCharts(const document::Document& document) {
    const std::filesystem::path procedure = session::FindPaths().fModule;
    report::Pictures pictures = report::MakePictures(document, (procedure.parent_path() / kModule).string());
    for (const std::string& failure : pictures.fvFailures) PrintError(failure);
    return pictures;
}

std::optional<FileError> WritePictures(const report::Pictures& pictures, const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return FileError{folder + ": " + error.message()};
    for (std::size_t i = 0; i < pictures.fvSvg.size(); ++i) {
        if (pictures.fvSvg[i].empty()) continue;
        const std::string path = (std::filesystem::path(folder) / (pictures.fvNames[i] + ".svg")).string();
        if (auto failure = WriteOutput(path, pictures.fvSvg[i])) return failure;
    }
    return {};
}

}  // namespace hierfit::program
