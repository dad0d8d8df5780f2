#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/files/Files.h"

namespace hierfit::program {

/// The word that a mistyped one was meant to be; empty where none is near.
std::string FindNearest(std::string_view word, const std::vector<std::string>& words);

/// A path that exists and is like one that does not: its first name that is not there is taken for the nearest in its
/// folder. Empty where none is near.
std::string FindNearestPath(const std::string& path);

/// Why there is nothing at a path, and what may have been meant.
FileError DescribeMissing(const std::string& path);

/// Such as `; did you mean "report"?`; empty for an empty word.
std::string Suggest(const std::string& word);

}  // namespace hierfit::program
