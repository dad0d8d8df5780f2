#pragma once

#include <string>

#include "host/document/Table.h"

namespace hierfit::report::markdown {

/// Appends a pipe table, and captions and notes as paragraphs below it.
void AppendTable(std::string& out, const document::Table& table);

}  // namespace hierfit::report::markdown
