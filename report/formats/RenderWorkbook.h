#pragma once

#include <optional>
#include <string>
#include <variant>

#include "host/document/Document.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// A prepared document as a workbook. Its modules are loaded: the one that writes it, and for charts that of pictures.
std::variant<std::string, RenderError> RenderWorkbook(const document::Document& document,
                                                      const RenderSettings& settings);

/// Why there can be no workbook in this installation; nothing where there can.
std::optional<RenderError> FindMissingOfWorkbook(const RenderSettings& settings);

}  // namespace hierfit::report
