#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/Export.h"
#include "host/context/Settings.h"
#include "host/document/Document.h"

namespace hierfit::session {

using context::Labels;
using context::Settings;

/// One of the two documents: its text, and the name under which diagnostics and the output document know it.
struct Input {
    std::string fName;  ///< a file name; of a path, the last component counts
    std::string fText;
};

enum class Outcome {
    Issued,      ///< both documents were read; the output document holds what was issued
    Unreadable,  ///< a document could not be read; the diagnostics say why
    NotSetUp,    ///< the installation lacks something, such as the module or the language
};

struct Result {
    Outcome fOutcome;
    document::Document fDocument;     ///< with the diagnostics, whatever the outcome
    std::size_t fUnseenMessages = 0;  ///< so many diagnostics, the last ones, repeat messages about the model
};

/// Runs the procedure on a PMML and a StatXML document. It writes nothing anywhere; all it has to say is in the result.
/// Calls on several threads at once do not disturb each other.
HIERFIT_EXPORT Result Run(Input pmml, Input statXml, const Settings& settings);

/// The languages that `Settings::fLanguage` may name.
HIERFIT_EXPORT std::vector<std::string> Languages();

}  // namespace hierfit::session
