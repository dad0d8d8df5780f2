#include "PictureFiles.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "OutputFile.h"
#include "StandardError.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::program {

std::vector<FileError> WritePictures(const std::vector<report::PictureFile>& pictures,
                                     const report::PictureFormat& format, const std::string& folder) {
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
