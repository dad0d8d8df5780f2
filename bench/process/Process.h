#pragma once

#include <string>
#include <vector>

namespace bench {

/// What one run of a program took.
struct Usage {
    double fWall;       ///< milliseconds from before the start until after the exit
    double fProcessor;  ///< milliseconds in user and system mode together
    double fMemory;     ///< the most that was resident, in MB
};

/// Runs a program, found as the shell finds it, with its output thrown away. Throws std::runtime_error when it cannot
/// be started or does not exit with 0.
Usage RunProcess(const std::vector<std::string>& command);

}  // namespace bench
