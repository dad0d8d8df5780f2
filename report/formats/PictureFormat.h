#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// A format of picture files.
struct PictureFormat {
    std::string fName;                                                        ///< which is its files' ending, too
    std::function<std::optional<std::string>(const std::string& svg)> fMake;  ///< nothing where it cannot be made
};

/// A format for which `IsPictures` holds, or why it cannot be had: PNG takes a module.
std::variant<PictureFormat, RenderError> MakePictureFormat(Format format, const RenderSettings& settings);

}  // namespace hierfit::report
