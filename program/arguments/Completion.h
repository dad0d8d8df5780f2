#pragma once

#include <string>
#include <vector>

namespace hierfit::program {

/// What may stand in the place of one word of a command line: a word, a tab and what it means on each line, or ":files"
/// or ":folders" where the shell knows better. `request` is that word's place in the command line, where the program's
/// name is 0, and the words behind the name; its own, which is what is typed of it, may be missing at the end.
std::string Complete(const std::vector<std::string>& request);

}  // namespace hierfit::program
