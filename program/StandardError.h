#pragma once

#include <list>
#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::program {

/// Prints one line, led by the program's name, to standard error.
void PrintError(const std::string& text);

/// Prints the messages that the procedure reported, such as "hierfit: warning: ...".
void PrintMessages(const std::list<document::Item>& items);

/// Prints the diagnostics of a run that gave no report. A place begins with the path that the user gave.
void PrintErrors(const document::Document& document, const std::vector<std::string>& paths);

}  // namespace hierfit::program
