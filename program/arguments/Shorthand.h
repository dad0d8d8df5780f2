#pragma once

#include <string>
#include <variant>
#include <vector>

namespace hierfit::program {

/// Why a command line names nothing to do.
struct NoCommand {
    std::string fText;
};

/// The arguments with the command that a user may leave out or spell as one asks for help: `FOLDER` is `report FOLDER`,
/// and `help COMMAND` is `COMMAND --help`.
std::variant<std::vector<std::string>, NoCommand> Expand(std::vector<std::string> arguments,
                                                         const std::vector<std::string>& commands);

}  // namespace hierfit::program
