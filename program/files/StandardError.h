#pragma once

#include <list>
#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::program {

/// So many characters of a message's words, or of a name or word that the user typed, stand in a line at most.
inline constexpr std::size_t kMostOfText = 1000;

inline constexpr const char* kShortMemory = "memory is short";

/// Prints one line, led by the program's name, to standard error.
void PrintError(const std::string& text);

/// The same where memory is short, and takes none.
void PrintShortMemory();

/// Prints the messages that the procedure reported, such as "hierfit: warning: ...".
void PrintMessages(const std::list<document::Item>& items);

/// Levels of messages and diagnostics.
inline constexpr int kInformation = 1;
inline constexpr int kWarning = 2;

/// The text of a diagnostic, led by its place where it has one. The place begins with the path that the user gave.
std::string DescribeDiagnostic(const document::Diagnostic& diagnostic, const std::vector<std::string>& paths);

/// Prints a run's diagnostics from a level on.
void PrintDiagnostics(const document::Document& document, const std::vector<std::string>& paths, int leastLevel);

}  // namespace hierfit::program
