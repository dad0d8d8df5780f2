#pragma once

#include "program/arguments/Command.h"
#include "program/files/ExitStatus.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::program {

/// How a report is rendered, by the options of its command and by whether it goes to a terminal.
report::RenderSettings MakeRenderSettings(const OutputOptions& output, bool isTerminal);

/// The exit status when there is no rendering.
ExitStatus StatusOf(report::RenderFault fault);

}  // namespace hierfit::program
