#pragma once

/// The files in which the library keeps a workbook's parts until it packs them. It looks at no write to them, so a full
/// disk would make a workbook with holes; and it gives them names, which stay where a signal ends the process. It is
/// made to use these instead: they have no names, and remember what failed. They belong to the calling thread.
namespace hierfit::report::xlsx {

/// From now on failures count.
void ForgetPartFailure();

/// The errno of the last write that failed; 0 if none did.
int PartFailure();

}  // namespace hierfit::report::xlsx
