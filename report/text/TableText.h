#pragma once

#include "report/layout/Grid.h"
#include "report/text/Sink.h"

namespace hierfit::report {

/// Writes a table: title, headers and cells between rules, captions, notes, lettered notes. A width of 0 is no limit.
void WriteTable(const document::Table& table, int width, Sink& sink);

}  // namespace hierfit::report
