#include "FaultProbe.h"

#include <sys/wait.h>

#include <exception>

namespace {

/// Keeps the call out of the frame that catches.
__attribute__((noinline)) void callOpaquely(void (*subject)())
{
    void (*volatile opaque)() = subject;
    opaque();
    asm volatile("");
}

} // namespace

Outcome RunAsIs(void (*subject)())
{
    Outcome outcome;
    try {
        callOpaquely(subject);
        outcome.returned = true;
    } catch (const OrvikOs::MachineFault& fault) {
        outcome.machineFault = true;
        outcome.record = fault.Record();
        outcome.text = fault.what();
    } catch (const std::exception& exception) {
        outcome.text = exception.what();
    }
    OrvikOs::FaultScope::RearmStackGuard();
    return outcome;
}

Outcome RunInScope(void (*subject)())
{
    const OrvikOs::FaultScope scope;
    return RunAsIs(subject);
}

bool EndedBy::operator()(int status) const
{
    if (WIFSIGNALED(status)) {
        return WTERMSIG(status) == m_signal;
    }
    return (HasAddressSanitizer() || HasThreadSanitizer()) && WIFEXITED(status) &&
           WEXITSTATUS(status) != 0;
}

bool HasAddressSanitizer()
{
#ifdef __SANITIZE_ADDRESS__
    return true;
#else
    return false;
#endif
}

bool HasThreadSanitizer()
{
#ifdef __SANITIZE_THREAD__
    return true;
#else
    return false;
#endif
}
