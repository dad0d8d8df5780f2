#pragma once

#include "program/arguments/Command.h"

namespace hierfit::program {

/// Says the program's version on standard output; if asked, those of the libraries that it takes, too, and where its
/// parts were found or why they were not. Gives the exit status.
int Run(const VersionCommand& command);

}  // namespace hierfit::program
