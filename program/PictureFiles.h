#pragma once

#include <string>
#include <vector>

#include "Files.h"
#include "report/charts/Pictures.h"
#include "report/formats/PictureFormat.h"

namespace hierfit::program {

/// Writes each picture as FOLDER/NAME.ENDING; the folder is made if need be. A file appears whole or not at all. Gives
/// what went wrong: a picture that cannot be made is left out, a file that cannot be written is the last.
std::vector<FileError> WritePictures(const std::vector<report::PictureFile>& pictures,
                                     const report::PictureFormat& format, const std::string& folder);

}  // namespace hierfit::program
