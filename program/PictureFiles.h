#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Files.h"
#include "report/charts/Pictures.h"

namespace hierfit::program {

/// A format of picture files.
struct PictureFormat {
    std::string fName;                                                        ///< which is its files' ending, too
    std::function<std::optional<std::string>(const std::string& svg)> fMake;  ///< nothing where it cannot be made
};

/// Either format, or why it cannot be had: PNG takes a module, which is loaded from where the procedure's lies.
std::variant<PictureFormat, FileError> MakeSvgFormat();
std::variant<PictureFormat, FileError> MakePngFormat(double scale);

/// Writes each picture as FOLDER/NAME.ENDING; the folder is made if need be. A file appears whole or not at all. Gives
/// what went wrong: a picture that cannot be made is left out, a file that cannot be written is the last.
std::vector<FileError> WritePictures(const std::vector<report::PictureFile>& pictures, const PictureFormat& format,
                                     const std::string& folder);

}  // namespace hierfit::program
