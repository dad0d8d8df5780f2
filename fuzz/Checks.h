#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::fuzz {

/// Ends the process, so that the fuzzer keeps the input, and says why.
[[noreturn]] void Fail(const std::string& fault);

/// Renders a document in every form, saves it and renders what is read back: both must be the same bytes.
void RenderFreshAndSaved(const document::Document& document);

}  // namespace hierfit::fuzz
