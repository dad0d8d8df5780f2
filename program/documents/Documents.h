#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/session/Session.h"
#include "program/files/Files.h"

namespace hierfit::program {

/// A model's two documents after a run of the procedure, and the paths by which the user named them.
struct ModelRun {
    std::vector<std::string> fvPaths;  ///< by `document::Place::fSource`
    session::Result fResult;
};

/// Runs the procedure on a PMML and a StatXML document, or on those of one folder. An error when one cannot be read as
/// a file; what the procedure finds in them is in the result.
std::variant<ModelRun, FileError> RunModel(const std::vector<std::string>& documents,
                                           const session::Settings& settings);

/// Says on standard error what a run noticed on its way; all of it when it issued nothing.
void PrintRun(const ModelRun& run);

/// Says on standard error why a run issued nothing. Gives the exit status.
int TellFailure(const ModelRun& run);

/// Reads a saved document; "-" is standard input. An error names the file, and the place where it is known.
std::variant<document::Document, FileError> ReadSaved(const std::string& path);

}  // namespace hierfit::program
