#pragma once

#include <string_view>
#include <vector>

#include "fuzz/change/Form.h"

namespace hierfit::fuzz {

/// What each target defines: the form of each text that an input is parted into, and what is done with an input.
std::vector<const Form*> FormsOfInput();
void RunInput(std::string_view input);

}  // namespace hierfit::fuzz
