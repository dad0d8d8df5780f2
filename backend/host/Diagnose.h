#pragma once

#include <string>

#include "host/Export.h"

namespace hierfit {

class SDOMXMLWrapper;

/// Tells the host what was left out and why: a table, a block, a row. It goes to the run's diagnostics and is no part
/// of the output. The text is plain English and is not translated.
HIERFIT_EXPORT void Diagnose(const std::string& text);

/// The same, with the place of an element in the document.
HIERFIT_EXPORT void Diagnose(const SDOMXMLWrapper& element, const std::string& text);

/// To be called where whatever was thrown is dropped. If it was for want of memory, the run fails when it is over, since
/// what is missing then is not the document's fault.
HIERFIT_EXPORT void NoteDropped() noexcept;

}  // namespace hierfit
