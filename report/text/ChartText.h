#pragma once

#include "host/document/Chart.h"
#include "report/text/Sink.h"

namespace hierfit::report {

/// Writes a chart in words: its title, and of a whole one its sentence and the first of the values that it shows. A
/// width of 0 is no limit.
void WriteChart(const document::Chart& chart, int width, bool isWhole, Sink& sink);

}  // namespace hierfit::report
