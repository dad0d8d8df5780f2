#pragma once

#include "program/arguments/Command.h"

namespace hierfit::program {

/// Lists every item of a report on standard output: its name, which is that of its link in the page, its kind and its
/// title. A line of text is indented under its heading; JSON gives the heading's name, null at the top. Gives the exit
/// status.
int Run(const ListCommand& command);

}  // namespace hierfit::program
