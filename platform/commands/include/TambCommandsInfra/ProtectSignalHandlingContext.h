#ifndef TAMBCOMMANDSINFRA_PROTECTSIGNALHANDLINGCONTEXT_H
#define TAMBCOMMANDSINFRA_PROTECTSIGNALHANDLINGCONTEXT_H

#include "TambCommandsInfra/Export.h"

#include <memory>

namespace OrvikOs {
class FaultScope;
}

namespace TambCommandsInfra {

/// While it lives, machine faults on its thread become C++ exceptions.
///
/// A read or write through a bad pointer, an illegal instruction, an integer division by zero and
/// their like leave the faulting code as an exception derived from std::exception. Which one is
/// decided by the exception factory registered with OrvikOs: with OrvikCore present
/// OrvikCore::StructuredException; without one the exception of OrvikOs itself, derived from
/// std::runtime_error. Floating-point traps are left as they are.
///
/// Protect foreign code like this, with the try block in a function other than the one that may
/// fault:
///
///     try {
///         const ProtectSignalHandlingContext protection;
///         factory->Initialize(&context, preLoad); // virtual: a frame of its own
///     } catch (const std::exception& error) { ... }
///
/// Scopes nest. A scope is created on the stack and destroyed by the thread that created it, in
/// reverse order.
///
/// @thread  The thread that created it; other threads are not protected by it.
class TAMBCOMMANDSINFRA_API ProtectSignalHandlingContext
{
public:
    /// Starts the protection.
    ProtectSignalHandlingContext();

    /// Ends the protection; what was in place before holds again.
    ~ProtectSignalHandlingContext();

    ProtectSignalHandlingContext(const ProtectSignalHandlingContext&) = delete;
    ProtectSignalHandlingContext& operator=(const ProtectSignalHandlingContext&) = delete;

private:
    std::unique_ptr<OrvikOs::FaultScope> m_scope; ///< Owned; the protection itself.
};

} // namespace TambCommandsInfra

#endif
