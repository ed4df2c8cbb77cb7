#ifndef TAMBCOMMANDSINFRA_CONTRACT_H
#define TAMBCOMMANDSINFRA_CONTRACT_H

#include "TambCommandsInfra/Export.h"

#include <atomic>

/// Whether contract assertions are checked; initially true. Written by the host at start, read by
/// the code that asserts.
///
/// @thread  Any thread.
extern TAMBCOMMANDSINFRA_API std::atomic<bool> TambContractChecksOn;

namespace TambCommandsInfra {

/// Receives a contract that does not hold. The three texts are literals: they live as long as the
/// program.
///
/// @param condition  The condition that does not hold, or a sentence that says what is wrong.
/// @param source     Where it was asserted: a literal given by the caller, not a file name made by
/// the compiler.
/// @thread  The thread that asserted. May throw: what it throws leaves the assertion.
using ContractHandler = void (*)(const char* condition, const char* source);

/// Replaces the handler of contracts that do not hold.
///
/// The handler in place from the start writes "Contract violated: <condition> (<source>)" and a
/// line end to the debug output and returns.
///
/// @param handler  Null puts the first handler back.
/// @return the handler in place before, never null.
/// @thread  Any thread.
TAMBCOMMANDSINFRA_API ContractHandler SetContractHandler(ContractHandler handler);

/// Calls the handler, whether TambContractChecksOn is set or not.
///
/// @param condition  Literal; null counts as "".
/// @param source     Literal; null counts as "".
/// @thread  Any thread.
TAMBCOMMANDSINFRA_API void RaiseContractAssertion(const char* condition, const char* source);

/// Calls the handler when @p holds is false and TambContractChecksOn is set.
///
/// @param holds      The value of the condition.
/// @param condition  Literal text of the condition.
/// @param source     Literal that names the place.
/// @thread  Any thread.
inline void AssertContract(bool holds, const char* condition, const char* source)
{
    if (!holds && TambContractChecksOn.load(std::memory_order_acquire)) {
        RaiseContractAssertion(condition, source);
    }
}

} // namespace TambCommandsInfra

#endif
