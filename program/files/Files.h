#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace hierfit::program {

/// Why a file could not be read or written, in the system's words, such as "x.pmml: No such file or directory".
struct FileError {
    std::string fText;
    bool fIsClosedPipe = false;  ///< nobody reads standard output any more
};

/// The whole of a regular file or pipe, at most `limit` bytes; "-" is standard input.
std::variant<std::string, FileError> ReadFile(const std::string& path, std::size_t limit);

bool IsFolder(const std::string& path);

/// Whether there is a file, folder or other thing at a path that can be looked at.
bool Exists(const std::string& path);

/// Why there is nothing to be looked at at a path.
FileError DescribeAbsence(const std::string& path);

}  // namespace hierfit::program
