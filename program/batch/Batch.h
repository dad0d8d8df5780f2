#pragma once

#include "program/arguments/Command.h"

namespace hierfit::program {

/// Writes a report for each of many models, and an index of them. Gives the exit status; a signal that asks the program
/// to end does so when the models that are under way are done and the index is written.
int Run(const BatchCommand& command);

}  // namespace hierfit::program
