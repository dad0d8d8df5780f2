#pragma once

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

}  // namespace hierfit::program
