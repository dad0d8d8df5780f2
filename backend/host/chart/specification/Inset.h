#pragma once

#include <string>
#include <string_view>

namespace hierfit::chart {

/// A chart's XML with another chart and that one's data stream set into it at its anchor; empty when one of the three
/// cannot be read. The field type is that of the target variable.
std::string EmbedInset(const std::string& graph, const std::string& inset, std::string_view stream, int fieldType);

}  // namespace hierfit::chart
