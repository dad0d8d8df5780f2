#pragma once

#include <optional>
#include <string>
#include <variant>

#include "host/Export.h"
#include "host/document/Document.h"
#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// Leaves a document the items that the settings choose, and writes its words for readers; JSON keeps both.
HIERFIT_EXPORT std::optional<RenderError> Prepare(document::Document& document, Format format,
                                                  const RenderSettings& settings);

/// A prepared document in a format. One of pictures takes a document of one chart.
HIERFIT_EXPORT std::variant<std::string, RenderError> Render(const document::Document& document, Format format,
                                                             const RenderSettings& settings);

}  // namespace hierfit::report
