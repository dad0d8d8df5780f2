#pragma once

#include <string>

namespace hierfit::context {

/// What is shown of a variable or of a data value.
enum class Labels { Name, Label, Both };  ///< `Name` is the plain value where values are meant

/// What the user chose for a run.
struct Settings {
    std::string fLanguage = "en";  ///< "C" shows every source text and key unchanged
    Labels fVariables = Labels::Label;
    Labels fValues = Labels::Label;
    std::string fTemplateFolder;  ///< looked into before the installed templates; empty for none
    bool fTellsAll = false;       ///< also contradictions of the documents that mislead no reader of a report
};

}  // namespace hierfit::context
