#include "PictureFiles.h"

#include <filesystem>
#include <system_error>

#include "OutputFile.h"

namespace hierfit::program {

std::optional<FileError> WritePictures(const std::vector<report::PictureFile>& pictures, const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) return FileError{folder + ": " + error.message()};
    for (const report::PictureFile& picture : pictures) {
        const std::string path = (std::filesystem::path(folder) / (picture.fName + ".svg")).string();
        if (auto failure = WriteOutput(path, picture.fSvg)) return failure;
    }
    return {};
}

}  // namespace hierfit::program
