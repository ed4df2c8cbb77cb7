#ifndef ORVIKOS_POSIX_FAULTS_H
#define ORVIKOS_POSIX_FAULTS_H

#include <OrvikOs/FaultHook.h>

#include <signal.h>

#include <cstdint>
#include <exception>
#include <typeinfo>

namespace OrvikOs {

struct FaultThread;

// The stages of turning a fault into an exception:
//   FaultSignals.cpp   the handlers: decides between converting and chaining, and redirects the
//   interrupted
//                      context to a thunk;
//   FaultRecord.cpp    describes the fault in Windows terms;
//   FaultThunk.cpp     the thunk, where the faulting thread goes on after the handler has returned;
//   FaultUnwind.cpp    passes over frames whose exception table would end the program;
//   FaultRegions.cpp   knows the code that must not be left by an exception.

/// What the handler leaves on the interrupted stack for the thunk. The thunk's unwind information
/// reads the registers from here; the order is known there too.
struct FaultFrame
{
    std::uint64_t rip;
    std::uint64_t rsp;
    std::uint64_t rbp;
    std::uint64_t rbx;
    std::uint64_t r12;
    std::uint64_t r13;
    std::uint64_t r14;
    std::uint64_t r15;
    std::uint64_t r10;
    FaultInfo fault;
};

/// Describes the fault that a signal tells of.
EXCEPTION_RECORD DescribeFault(int signal, const siginfo_t& info, const ucontext_t& context);

/// Where a redirected context goes on; never called.
extern "C" void OrvikOs_FaultThunk();

/// Follows the stack outward from the faulting frame the way the exception will go, up to the frame
/// that will catch it. Where a frame on the way would end the program instead of letting it pass,
/// moves @p frame to the caller of the outermost such frame.
///
/// @param type, object  What is thrown; see MakeFaultException().
/// @return false when nobody will catch it; @p frame is then left alone.
bool SkipTerminatingFrames(FaultFrame& frame, const std::type_info* type, void* object);

/// Learns where the code lies that must not be left by an exception. Called before the handlers are
/// installed.
void LearnFaultRegions();

/// Tells whether the interrupted code is the stack unwinder or the dynamic loader, or runs inside
/// the memory allocator. Usable in a signal handler.
bool MustNotThrowFrom(const ucontext_t& context);

/// Makes the thread that a signal has interrupted go on in the thunk, which throws what the fault
/// becomes. Usable in a signal handler.
///
/// @return false when there is no room on the thread's stack.
bool RedirectToThrow(const FaultInfo& fault, ucontext_t& context, FaultThread& thread);

/// Tells whether the code interrupted by a signal runs inside the memory allocator or the dynamic
/// loader. Usable in a signal handler.
///
/// @param context  What the handler was given.
bool IsInsideAllocator(const void* context);

/// Makes SIGABRT end the program from now on.
void StopConvertingAborts() noexcept;

} // namespace OrvikOs

#endif
