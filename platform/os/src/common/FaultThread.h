#ifndef ORVIKOS_COMMON_FAULTTHREAD_H
#define ORVIKOS_COMMON_FAULTTHREAD_H

#include "HandlerTls.h"

#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FaultScope.h>

#include <cstdint>
#include <exception>
#include <typeinfo>

namespace OrvikOs {

/// What fault handling knows about one thread. Read inside signal handlers: plain data, constant
/// initial value.
struct FaultThread
{
    unsigned depth = 0;          ///< Open scopes.
    bool converting = false;     ///< A fault is being turned into an exception right now.
    FaultHandlers handlers;      ///< The thread's own handlers; null members where it has none.
    FaultHook hook = nullptr;    ///< Called instead of throwing; null for none.
    void* hookContext = nullptr; ///< Handed to the hook; not owned.
    std::uintptr_t guardLow =
        0; ///< First byte of the guard below the stack; 0 on threads without one.
    std::uintptr_t stackLow = 0; ///< First byte of the stack, just above the guard.
    bool guardOpen = false; ///< The guard was opened for an overflow and is not armed again yet.
    void (*interrupter)(void*) = nullptr; ///< Of the ThreadWatch that interrupts; throws.
    void* interrupterContext = nullptr;   ///< Handed to it; not owned.
};

extern thread_local constinit FaultThread t_faultThread ORVIKOS_HANDLER_TLS;

/// Calls the handler for a machine fault, the thread's, the process's or the built-in one, and
/// returns what it has thrown.
///
/// @param type    Receives the type of what was thrown.
/// @param object  Receives the thrown object when it derives from std::exception, else null; as
/// long as the
///                result.
std::exception_ptr MakeFaultException(const FaultInfo& fault, const std::type_info*& type,
                                      void*& object);

} // namespace OrvikOs

#endif
