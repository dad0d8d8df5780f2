#pragma once

#include "program/arguments/Command.h"

namespace hierfit::program {

/// Says on standard output, one remark a line, what two documents lack or contradict, and which tables and charts will
/// be missing for it. Messages about the fit itself are no remarks, but where they refuse a block of means or stand in
/// for the estimates. Gives the exit status.
int Run(const CheckCommand& command);

}  // namespace hierfit::program
