#pragma once

#include <optional>
#include <string>
#include <variant>

#include "host/document/Document.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// A prepared document for a word processor.
std::variant<std::string, RenderError> RenderDocx(const document::Document& document, const RenderSettings& settings);

/// Why that cannot be had in this installation; nothing where it can.
std::optional<RenderError> FindMissingOfDocx(const RenderSettings& settings);

}  // namespace hierfit::report
