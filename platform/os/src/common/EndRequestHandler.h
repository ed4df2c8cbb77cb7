#ifndef ORVIKOS_COMMON_ENDREQUESTHANDLER_H
#define ORVIKOS_COMMON_ENDREQUESTHANDLER_H

namespace OrvikOs {

/// Puts the handlers for the system's requests to end in place of the system's; at most one at a
/// time.
///
/// @return false when the system refused, or sends none.
bool InstallEndRequestHandler();

/// Puts back what was in place before InstallEndRequestHandler().
void RemoveEndRequestHandler();

/// Called by the handlers: tells the watch.
///
/// @thread  Any thread, a signal handler too.
void NoteEndRequest() noexcept;

} // namespace OrvikOs

#endif
