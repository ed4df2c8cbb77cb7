#ifndef ORVIKOS_INTERPRETERSIGNAL_H
#define ORVIKOS_INTERPRETERSIGNAL_H

#include "OrvikOs/Export.h"

namespace OrvikOs {

/// Gives the number of the system signal that is set aside for interrupting a script interpreter.
/// The interpreter installs its own handler for it; nothing else in the process uses it.
///
/// @thread  Any thread.
ORVIKOS_API int InterpreterSignalNumber() noexcept;

/// Sends that signal to the process. Without a handler of an interpreter it would end the program.
///
/// @return false when the system refused.
/// @thread  Any thread.
ORVIKOS_API bool RaiseInterpreterSignal() noexcept;

} // namespace OrvikOs

#endif
