#pragma once

#include "program/arguments/Command.h"
#include "program/files/ExitStatus.h"

namespace hierfit::program {

/// Reads a model's two documents and writes the report. Gives the exit status.
int Run(const ReportCommand& command);

/// Writes a saved document in another format. Gives the exit status.
int Run(const RenderCommand& command);

}  // namespace hierfit::program
