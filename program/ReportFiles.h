#pragma once

#include <string>
#include <vector>

#include "CommandLine.h"
#include "ExitStatus.h"
#include "host/document/Document.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::program {

/// Why a file of a report was not written.
struct WriteFailure {
    ExitStatus fStatus;
    std::string fText;
    bool fIsLast = false;  ///< nothing more of the report was written
};

/// Writes a prepared document to standard output for "-", else to a file, or into a folder where its format is one of many files; the folder is made if
/// need be. Each file appears whole or not at all. A file that cannot be made is left out, one that cannot be written
/// is the last.
std::vector<WriteFailure> WriteReport(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& path);

}  // namespace hierfit::program
