#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Files.h"
#include "report/charts/Pictures.h"

namespace hierfit::program {

/// Writes each picture as FOLDER/NAME.svg; the folder is made if need be. A file appears whole or not at all.
std::optional<FileError> WritePictures(const std::vector<report::PictureFile>& pictures, const std::string& folder);

}  // namespace hierfit::program
