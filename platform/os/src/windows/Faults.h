#ifndef ORVIKOS_WINDOWS_FAULTS_H
#define ORVIKOS_WINDOWS_FAULTS_H

#include <typeinfo>

struct _CONTEXT;

namespace OrvikOs {

// Faults reach a vectored handler on the faulting thread, in ordinary context. It makes the
// exception there and redirects the interrupted context to a thunk that throws it when the handler
// has returned:
//   FaultVector.cpp  the handler and the thunk;
//   FaultUnwind.cpp  passes over frames whose exception table would end the program.

/// Follows the stack outward from @p context the way the exception will go, up to the frame that
/// will catch it. Where a frame on the way would end the program instead of letting it pass, moves
/// @p context to the caller of the outermost such frame.
///
/// @param type, object  What is thrown; see MakeFaultException().
/// @return false when nobody will catch it; @p context is then left alone.
bool SkipTerminatingFrames(_CONTEXT& context, const std::type_info* type, void* object);

/// Keeps part of the calling thread's stack back, so that an overflow can be handled on it.
void ReserveStackForFaults();

/// Makes abort() end the program from now on.
void StopConvertingAborts() noexcept;

} // namespace OrvikOs

#endif
