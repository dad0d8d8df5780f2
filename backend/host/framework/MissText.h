#pragma once

#include <optional>

#include "host/document/Document.h"

namespace hierfit::context {
class RunContext;
}

namespace hierfit::framework {

/// Tells the last look-up that answered false as an error with its place, such as
/// `StatXML/PMMLModel/ModelDiagnostics/Statistic[3]: attribute "value" expected`. Nothing when there was none.
std::optional<document::Diagnostic> DescribeMiss(const context::RunContext& run);

}  // namespace hierfit::framework
