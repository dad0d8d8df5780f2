#pragma once

#include "CommandLine.h"
#include "report/text/TextReport.h"

namespace hierfit::program {

/// Width and colour for text output, by where it goes and by the environment's NO_COLOR.
report::TextOptions ChooseTextOptions(Color color, bool isTerminal);

}  // namespace hierfit::program
