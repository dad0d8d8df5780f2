#pragma once

#include "program/arguments/Command.h"

namespace hierfit::program {

/// The command that a command line gives, or what there is to say instead of running one.
Command ParseCommandLine(int argumentCount, const char* const* arguments);

}  // namespace hierfit::program
