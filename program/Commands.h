#pragma once

#include "CommandLine.h"

namespace hierfit::program {

/// Exit statuses of the program.
enum ExitStatus {
    kWritten = 0,
    kWrongUsage = 1,
    kUnreadable = 2,
    kUnwritable = 3,
    kMissingPart = 4,   ///< the procedure's module, say
    kClosedPipe = 141,  ///< as of a program that the signal of a closed pipe ended
};

/// Reads a model's two documents and writes the report. Gives the exit status.
int Run(const ReportCommand& command);

/// Writes a saved document in another format. Gives the exit status.
int Run(const RenderCommand& command);

}  // namespace hierfit::program
