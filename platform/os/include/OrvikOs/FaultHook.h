#ifndef ORVIKOS_FAULTHOOK_H
#define ORVIKOS_FAULTHOOK_H

#include "OrvikOs/ExceptionRecord.h"
#include "OrvikOs/Export.h"

namespace OrvikOs {

/// What kind of trouble a FaultInfo tells of.
enum class FaultKind
{
    Machine,          ///< A machine fault; the record is filled.
    PureCall,         ///< A call of a pure virtual function.
    InvalidParameter, ///< A bad argument reported by RaiseInvalidParameter(); its details are not
                      ///< kept.
    Abort,            ///< An abort() of the calling thread.
    Interruption,     ///< A ThreadWatch ends what the thread does; never handed to a hook.
};

/// One fault, as a hook gets it; a plain value that may be kept.
struct FaultInfo
{
    FaultKind kind = FaultKind::Machine;
    EXCEPTION_RECORD record; ///< Filled for FaultKind::Machine, else zero.
};

/// Called instead of throwing, on the faulting thread, in ordinary context, on the stack of the
/// faulting code.
///
/// Leaves by its own way, in general by a long jump of a script interpreter whose frames no C++
/// exception may cross. If it returns, the fault is thrown as if there were no hook.
///
/// @param context  What FaultHookScope was given.
using FaultHook = void (*)(void* context, const FaultInfo& fault);

/// While alive, faults of the calling thread go to a hook. Takes effect only inside a FaultScope.
///
/// Scopes nest; one with a null hook makes faults exceptions again for its life, as code below a
/// primitive of an interpreter wants it.
///
/// @thread  The thread that created it.
class ORVIKOS_API FaultHookScope
{
public:
    /// @param hook     Null for none.
    /// @param context  Handed to the hook; not owned.
    FaultHookScope(FaultHook hook, void* context);

    /// Puts back what was in place before.
    ~FaultHookScope();

    FaultHookScope(const FaultHookScope&) = delete;
    FaultHookScope& operator=(const FaultHookScope&) = delete;

private:
    FaultHook m_previousHook; ///< Put back by the destructor.
    void* m_previousContext;  ///< Put back by the destructor; not owned.
};

/// Throws what @p fault becomes on the calling thread, through its handlers. For a fault that a
/// hook has carried across an interpreter.
[[noreturn]] ORVIKOS_API void ThrowFault(const FaultInfo& fault);

} // namespace OrvikOs

#endif
