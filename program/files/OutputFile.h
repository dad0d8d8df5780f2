#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "program/files/Files.h"

namespace hierfit::program {

/// Writes a text to an open file or pipe; false with the reason in errno.
bool WriteAll(int descriptor, std::string_view text);

/// Writes a whole output: to standard output for "-", else to a file, which appears whole or not at all: the text goes
/// to a temporary file beside it that then takes its name. What is no regular file (a pipe, a device) is written
/// directly.
std::optional<FileError> WriteOutput(const std::string& path, std::string_view text);

/// The exit status after an output. Says on standard error why it failed, but for a closed pipe, which ends silently.
int Conclude(const std::optional<FileError>& error);

}  // namespace hierfit::program
