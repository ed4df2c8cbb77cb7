#include "OrvikOs/InterpreterSignal.h"

#include <signal.h>
#include <unistd.h>

namespace OrvikOs {

int InterpreterSignalNumber() noexcept
{
    return SIGUSR2;
}

bool RaiseInterpreterSignal() noexcept
{
    return kill(getpid(), SIGUSR2) == 0;
}

} // namespace OrvikOs
