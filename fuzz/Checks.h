#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/document/Document.h"
#include "host/session/Session.h"

namespace hierfit::fuzz {

/// Ends the process, so that the fuzzer keeps the input, and says why.
[[noreturn]] void Fail(const std::string& fault);

/// Fails unless a text is well-formed XML.
void CheckXml(const std::string& text);

/// Fails unless a run ended with a report or with one error that says why there is none, and never in the net that is
/// spread for faults of the program.
void JudgeRun(const session::Result& result);

/// The document of an example.
document::Document RunExample(const std::string& name);

/// The JSON of a document that holds one chart, with a picture of that JSON.
std::string PutPicture(std::string_view picture);

/// The picture of that JSON, where it can be read.
std::optional<document::Picture> ReadPicture(std::string_view picture);

/// Renders a document in every form, saves it and renders what is read back: both must be the same bytes.
void RenderFreshAndSaved(const document::Document& document);

}  // namespace hierfit::fuzz
