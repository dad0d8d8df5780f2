#pragma once

#include <string_view>

#include "program/arguments/Command.h"
#include "report/text/TextOptions.h"

namespace hierfit::program {

/// Width, colour and extent of text output, by where it goes and by the environment's NO_COLOR and TERM.
report::TextOptions ChooseTextOptions(const OutputOptions& output, bool isTerminal);

/// Whether a text has more lines than the terminal, where it is known how many that has.
bool IsLongerThanScreen(std::string_view text);

}  // namespace hierfit::program
