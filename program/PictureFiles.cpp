#include "PictureFiles.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "OutputFile.h"
#include "StandardError.h"
#include "host/session/Paths.h"
#include "host/unicode/Excerpt.h"
#include "report/charts/raster/Raster.h"

namespace hierfit::program {

namespace {

constexpr const char* kRasterModule = "libhierfit_raster.so";

}  // namespace

std::variant<PictureFormat, FileError> MakeSvgFormat() {
    return PictureFormat{"svg", [](const std::string& svg) { return std::optional(svg); }};
}

std::variant<PictureFormat, FileError> MakePngFormat(double scale) {
    const std::filesystem::path module =
        std::filesystem::path(session::FindPaths().fModule).replace_filename(kRasterModule);
    auto raster = report::charts::Raster::Load(module.string());
    if (const auto* reason = std::get_if<std::string>(&raster)) {
        return FileError{std::string("png takes ") + kRasterModule + ": " + *reason};
    }
    return PictureFormat{"png", [raster = std::get<report::charts::Raster>(raster), scale](const std::string& svg) {
                             return raster.MakePng(svg, scale);
                         }};
}

std::vector<FileError> WritePictures(const std::vector<report::PictureFile>& pictures, const PictureFormat& format,
                                     const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return {{unicode::Excerpt(folder, kMostOfText) + ": " + error.message()}};
    std::vector<FileError> failures;
    for (const report::PictureFile& picture : pictures) {
        const std::string path = (std::filesystem::path(folder) / (picture.fName + "." + format.fName)).string();
        const std::optional<std::string> file = format.fMake(picture.fSvg);
        if (!file) {
            failures.push_back(
                {unicode::Excerpt(path, kMostOfText) + ": the picture is too large for " + format.fName});
        } else if (auto failure = WriteOutput(path, *file)) {
            failures.push_back(*std::move(failure));
            break;
        }
    }
    return failures;
}

}  // namespace hierfit::program
