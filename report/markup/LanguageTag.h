#pragma once

#include <string>

namespace hierfit::report {

/// A document's language as HTML and XML name it. "C", the language of source texts, and what is no language tag are
/// English.
std::string MakeLanguageTag(std::string language);

}  // namespace hierfit::report
