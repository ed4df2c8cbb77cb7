#ifndef ORVIKOS_FAULTSCOPE_H
#define ORVIKOS_FAULTSCOPE_H

#include "OrvikOs/ExceptionRecord.h"
#include "OrvikOs/Export.h"

#include <stdexcept>

namespace OrvikOs {

/// Turns a machine fault into an exception: must throw. What it throws is what the faulting code's
/// callers catch. Called on the faulting thread, in ordinary context (it may allocate, lock and
/// format).
using FaultTranslator = void (*)(const EXCEPTION_RECORD& record);

/// Turns a call of a pure virtual function into an exception: must throw.
using PureCallHandler = void (*)();

/// Turns an abort() of the calling thread into an exception: must throw.
using AbortHandler = void (*)();

/// Turns a bad argument found by RaiseInvalidParameter() into an exception: must throw. The texts
/// may be null and @p line 0 when the detail is not known.
using InvalidParameterHandler = void (*)(const wchar_t* expression, const wchar_t* function,
                                         const wchar_t* file, unsigned line);

/// The four handlers that decide what faults become. A null member leaves the decision to the next
/// level: the thread's own handlers, then the process's, then the built-in ones.
///
/// The built-in ones throw MachineFault, std::logic_error "Pure virtual call",
/// std::runtime_error "Abnormal abort." and std::invalid_argument "Invalid parameter".
struct FaultHandlers
{
    FaultTranslator translator = nullptr;
    PureCallHandler pureCall = nullptr;
    InvalidParameterHandler invalidParameter = nullptr;
    AbortHandler abort = nullptr;
};

/// What a machine fault becomes while nobody has set a translator. Its text is
/// "Machine fault 0x<code> at 0x<address>" with eight and at least eight hexadecimal digits.
class ORVIKOS_API MachineFault : public std::runtime_error
{
public:
    explicit MachineFault(const EXCEPTION_RECORD& record);
    ~MachineFault() override;

    /// Gives the record of the fault; valid as long as this exception.
    const EXCEPTION_RECORD& Record() const;

private:
    EXCEPTION_RECORD m_record;
};

/// While one is alive on a thread, machine faults, abort(), pure virtual calls and bad parameters
/// on that thread become exceptions.
///
/// Scopes nest and count. The process's signal handlers are installed while at least one thread is
/// in a scope; afterwards what was there before is back. A fault on a thread without a scope goes
/// to whoever handled it before, in general the system, which ends the program. So do signals sent
/// from outside (kill, raise), a fault inside the memory allocator or the dynamic loader, whose
/// locks would stay held, a fault inside the stack unwinder, and a fault while another is being
/// turned into an exception.
///
/// The exception leaves from the faulting instruction: destructors of all callers run. Where a
/// frame on the way would end the program (a noexcept function, or code whose exception table does
/// not expect the fault), the exception leaves from that frame's caller instead: the destructors of
/// that frame and of those that it called do not run, and a lock guard there stays locked. With
/// -fnon-call-exceptions only noexcept functions are affected. The code that catches must stand in
/// another function than the one that faults, reached through a virtual call or a function pointer.
///
/// An exception that nobody catches and std::terminate() go to the terminate handler. It should
/// call RestoreDefaultAbort() before it aborts: its abort() would else become an exception where
/// code further out on the stack catches one.
///
/// On a Thread (see Thread.h) a stack overflow becomes an exception too. It is thrown on the opened
/// guard pages; call RearmStackGuard() where it is caught. Entering or leaving a scope does so too.
/// On other threads an overflow ends the program.
///
/// Processors other than x86-64 have the scopes but not the conversion: every fault goes to the
/// system.
///
/// @thread  A scope is left on the thread that entered it, innermost first.
class ORVIKOS_API FaultScope
{
public:
    /// Enters a scope on the calling thread.
    FaultScope();

    /// Leaves it.
    ~FaultScope();

    FaultScope(const FaultScope&) = delete;
    FaultScope& operator=(const FaultScope&) = delete;

    /// Enters a scope without an object to hold it; each Enter() needs a Leave() on the same
    /// thread.
    static void Enter();

    /// Leaves the innermost scope of the calling thread; does nothing when it has none.
    static void Leave();

    /// Gives the number of scopes that the calling thread is in.
    static unsigned Depth();

    /// Makes the guard below the calling thread's stack work again after an overflow was caught.
    /// Does nothing when the guard is closed.
    ///
    /// @return false when the guard must stay open, because the caller itself still runs on it.
    static bool RearmStackGuard();
};

/// Replaces the handlers of the process, used by every thread that has no own ones.
///
/// @return the handlers in place before.
/// @thread  Any thread, while no other one faults.
ORVIKOS_API FaultHandlers SetProcessFaultHandlers(const FaultHandlers& handlers);

/// Gives the handlers set for the calling thread; members never set are null.
ORVIKOS_API FaultHandlers GetThreadFaultHandlers();

/// Replaces the handlers of the calling thread. @return those in place before.
ORVIKOS_API FaultHandlers SetThreadFaultHandlers(const FaultHandlers& handlers);

/// Replaces one handler of the calling thread; null leaves the decision to the process's handlers.
/// @return the one in place before, to be put back later.
ORVIKOS_API FaultTranslator SetFaultTranslator(FaultTranslator translator);
ORVIKOS_API PureCallHandler SetPureCallHandler(PureCallHandler handler);
ORVIKOS_API InvalidParameterHandler SetInvalidParameterHandler(InvalidParameterHandler handler);
ORVIKOS_API AbortHandler SetAbortHandler(AbortHandler handler);

/// Reports a call of a pure virtual function; every library and program of the project ends up
/// here.
///
/// Throws inside a scope; outside it writes "pure virtual method called" to standard error and ends
/// the program through std::terminate.
[[noreturn]] ORVIKOS_API void RaisePureCall();

/// Reports a bad argument found at run time.
///
/// Throws inside a scope; outside it ends the program through std::terminate. On Linux nothing in
/// the C library calls it: failed assertions there end in abort().
///
/// @param function, file, expression  Details for the message; null when not known.
/// @param line                        0 when not known.
[[noreturn]] ORVIKOS_API void RaiseInvalidParameter(const wchar_t* function, const wchar_t* file,
                                                    unsigned line, const wchar_t* expression);

} // namespace OrvikOs

#endif
