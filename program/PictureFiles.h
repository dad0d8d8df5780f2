#pragma once

#include <optional>
#include <string>

#include "Files.h"
#include "report/pictures/Pictures.h"

namespace hierfit::program {

/// Static pictures of all charts, by the module beside the procedure's. Why some are missing goes to standard error.
report::Pictures DrawCharts(const document::Document& document);

/// Writes each picture as FOLDER/NAME.svg; the folder is made if need be. A file appears whole or not at all.
std::optional<FileError> WritePictures(const report::Pictures& pictures, const std::string& folder);

}  // namespace hierfit::program
