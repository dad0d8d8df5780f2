#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "program/files/Files.h"

namespace hierfit::program {

/// The command that shows text page by page: the environment's HIERFIT_PAGER, else PAGER, else `less` where there is
/// one and the terminal can do what it asks for. None where that is empty or `cat`.
std::optional<std::string> FindPager();

/// Shows a text with a pager, which the shell starts, and waits for its end. Whoever quits it early has seen enough.
/// False if it could not be started; then nothing was shown.
bool ShowWithPager(const std::string& pager, std::string_view text);

/// Writes a text for people to standard output: on a terminal that is too short for it through a pager, if that is
/// wanted and one can be started.
std::optional<FileError> WriteForReader(const std::string& text, bool hasPager);

}  // namespace hierfit::program
