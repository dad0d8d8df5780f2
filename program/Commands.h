#pragma once

#include "CommandLine.h"

namespace hierfit::program {

/// Exit statuses of the program.
enum ExitStatus { kWritten = 0, kWrongUsage = 1, kUnreadable = 2, kUnwritable = 3, kPartMissing = 4 };

/// Reads a model's two documents and writes the report. Gives the exit status.
int Run(const ReportCommand& command);

/// Writes a saved document in another format. Gives the exit status.
int Run(const RenderCommand& command);

}  // namespace hierfit::program
