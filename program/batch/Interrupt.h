#pragma once

namespace hierfit::program {

/// From now on the signals of an interrupt from the keyboard and of a request to end are noted. A second one of a kind
/// ends the program at once. Signals that are ignored stay so.
void NoteInterrupts();

/// Whether one was noted.
bool IsInterrupted();

/// Ends the program as the signal that was noted would have done.
void EndByInterrupt();

}  // namespace hierfit::program
