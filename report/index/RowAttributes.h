#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "report/index/IndexedModel.h"

namespace hierfit::report {

/// Appends what a row keeps of its model, each attribute after a blank.
void AppendRowAttributes(std::string& out, const IndexedModel& model);

/// The model that attributes tell, without the path that the user named. Nothing where one is missing that every row
/// has, or cannot be read.
std::optional<IndexedModel> ReadRowAttributes(std::string_view attributes);

}  // namespace hierfit::report
