#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "host/Export.h"
#include "host/document/Document.h"
#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// A file of a format of many files. It is made when asked for, so that one of them is held at a time.
struct FileMaker {
    std::string fName;  ///< without a folder
    std::function<std::variant<std::string, RenderError>()> fMake;
};

/// The files of a folder of a format, or those that lie beside its file; or why they cannot be had. They borrow the
/// document, which must be prepared.
HIERFIT_EXPORT std::variant<std::vector<FileMaker>, RenderError> ListFiles(const document::Document& document,
                                                                           Format format,
                                                                           const RenderSettings& settings);

/// Why a format cannot be had in this installation; nothing where it can.
HIERFIT_EXPORT std::optional<RenderError> FindMissing(Format format, const RenderSettings& settings);

}  // namespace hierfit::report
