#pragma once

#include <string>
#include <vector>

namespace bench {

/// What one run of a program took, in milliseconds.
struct Times {
    double fWall;       ///< from before the start until after the exit
    double fProcessor;  ///< in user and system mode together
};

/// Runs a program, found as the shell finds it, with its output thrown away. Throws std::runtime_error when it cannot
/// be started or does not exit with 0.
Times RunProcess(const std::vector<std::string>& command);

}  // namespace bench
