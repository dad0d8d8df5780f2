#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/Chart.h"

namespace hierfit::chart {

/// The sources as UTF-8 JSON: a list of objects with `source`, `rows` and `variables`, each of these with `name` and
/// `values`. It is what the output document holds as a chart's `data`. Null is a value that was never written; NaN and
/// the infinities are the strings "NaN", "Infinity" and "-Infinity", and a text of that spelling has its first letter
/// escaped.
std::string WriteDataStream(const std::vector<document::ChartSource>& sources);

/// Reads such a text. The strings for NaN and the infinities are read as numbers, even where they were texts. Nothing
/// for what is no such text.
std::optional<std::vector<document::ChartSource>> ReadDataStream(std::string_view json);

}  // namespace hierfit::chart
