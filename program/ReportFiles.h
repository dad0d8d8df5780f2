#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"
#include "program/arguments/Command.h"
#include "program/files/ExitStatus.h"
#include "program/files/ProgressLine.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::program {

/// Why a file of a report was not written.
struct WriteFailure {
    ExitStatus fStatus;
    std::string fText;
    bool fIsLast = false;  ///< nothing more of the report was written
};

/// Writes a prepared document to standard output for "-", else to a file, or into a folder where its format is one of
/// many files; the folder is made if need be. Each file appears whole or not at all. A file that cannot be made is left
/// out, one that cannot be written is the last. `progress` may be null, and tells of many files how far they are.
std::vector<WriteFailure> WriteReport(const document::Document& document, Format format,
                                      const report::RenderSettings& settings, const std::string& path,
                                      ProgressLine* progress);

}  // namespace hierfit::program
