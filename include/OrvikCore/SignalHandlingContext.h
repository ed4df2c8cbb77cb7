#ifndef ORVIKCORE_SIGNALHANDLINGCONTEXT_H
#define ORVIKCORE_SIGNALHANDLINGCONTEXT_H

#include "OrvikCore/Export.h"

#include <OrvikOs/FaultScope.h>

#include <cstdint>
#include <exception>

namespace OrvikCore {

/// A scope on the stack in which machine faults, pure virtual calls, invalid parameters of the C
/// runtime and abort() become exceptions, and floating-point errors trap when asked for.
///
/// | what happens                | what is thrown                                          |
/// |-----------------------------|---------------------------------------------------------|
/// | a machine fault             | StructuredException                                     |
/// | a pure virtual call         | std::logic_error "Pure virtual call"                    |
/// | an invalid CRT parameter    | std::invalid_argument "Invalid parameter detected..."   |
/// | abort()                     | std::runtime_error "Abnormal abort."                    |
///
/// std::terminate() still ends the process: the handler leaves a marker in the file
/// "/Pellux.crash", on standard output and on standard error, and aborts for real.
///
/// Contexts nest: each puts back exactly what it found, so they end in the reverse order of their
/// making, on the thread that made them. The guarded code belongs into a function of its own that
/// is called through a pointer or a virtual operation; a fault in the very frame that holds the try
/// block may pass it by.
class ORVIKCORE_API SignalHandlingContext
{
public:
    /// Opens a context that leaves floating-point control alone.
    SignalHandlingContext();

    /// @param floatingPointControl  true: overflow, division by zero and denormal operands trap
    ///                              until the context ends; inexact, underflow and invalid do not.
    explicit SignalHandlingContext(const bool& floatingPointControl);

    /// Opens a context of its own with the same wish for floating-point control.
    SignalHandlingContext(const SignalHandlingContext& other);

    /// Leaves both contexts as they are: what each has to put back is its own.
    SignalHandlingContext& operator=(const SignalHandlingContext& other);

    virtual ~SignalHandlingContext();

    /// Does nothing.
    void Test();

    /// Names the file that the terminate handler writes, "/Pellux.crash" at start.
    ///
    /// @param path  not owned, not copied: lives as long as the process; null goes back to the
    ///              first name.
    /// @thread Main thread, at start.
    static void SetCrashFilePath(const char* path);

protected:
    /// Installs the five handlers and keeps what was there: terminate, machine faults, pure call,
    /// invalid parameter, SIGABRT; then disableFloatingPointControl() if wanted.
    void setSEHandling();

    /// Puts the five back in the same order; then unsetFloatingPointControl() if wanted.
    void unsetSEHandling();

    /// Saves the control word and makes overflow, division by zero and invalid operation trap.
    void setFloatingPointControl();

    /// Puts the saved exception masks back.
    void unsetFloatingPointControl();

    /// Saves the control word and makes overflow, division by zero and denormal operands trap.
    void disableFloatingPointControl();

private:
    OrvikOs::AbortHandler m_previousAbort = nullptr;
    std::terminate_handler m_previousTerminate = nullptr;
    OrvikOs::FaultTranslator m_previousTranslator = nullptr;
    OrvikOs::PureCallHandler m_previousPureCall = nullptr;
    OrvikOs::InvalidParameterHandler m_previousInvalidParameter = nullptr;
    std::uint32_t m_savedControlWord = 0;
    bool m_floatingPointControl = false;
};

} // namespace OrvikCore

#endif
