#ifndef ORVIKOS_COMMON_INTERRUPTHANDLER_H
#define ORVIKOS_COMMON_INTERRUPTHANDLER_H

namespace OrvikOs {

/// Puts the handler for the user's Ctrl-C in place of the system's; at most one at a time.
///
/// @return false when the system refused.
bool InstallInterruptHandler();

/// Puts back what was in place before InstallInterruptHandler().
void RemoveInterruptHandler();

/// Called by the handler: the first call asks the watch, a second one before its Reset() ends the
/// program.
///
/// @thread  Any thread, a signal handler too.
void NoteInterrupt() noexcept;

} // namespace OrvikOs

#endif
