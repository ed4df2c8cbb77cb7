#include "common/FaultThread.h"
#include "posix/Faults.h"

#include <OrvikOs/FaultScope.h>

#include <signal.h>

// Processors whose faults are not converted: scopes count, and every signal goes to the system.

namespace OrvikOs {

void FaultScope::Enter()
{
    ++t_faultThread.depth;
}

void FaultScope::Leave()
{
    if (t_faultThread.depth > 0) {
        --t_faultThread.depth;
    }
}

bool FaultScope::RearmStackGuard()
{
    return true;
}

void StopConvertingAborts() noexcept
{
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(SIGABRT, &byDefault, nullptr);
}

// Without knowledge of the machine's registers a parked thread may hold the allocator's lock.
bool IsInsideAllocator(const void*)
{
    return false;
}

} // namespace OrvikOs
