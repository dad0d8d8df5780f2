#pragma once

#include <string>

namespace hierfit::report {

/// A document's language as HTML and XML name it. "C", the language of source texts, and what is no language tag are
/// English.
std::string MakeLanguageTag(std::string language);

/// Whether a language is written from right to left: by the script of its tag, else by the one that it is mostly
/// written in.
bool IsWrittenRightToLeft(const std::string& language);

}  // namespace hierfit::report
