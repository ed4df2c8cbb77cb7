#include "OrvikOs/InterpreterSignal.h"

#include <csignal>

namespace OrvikOs {

// Windows has no user signals; interpreters built for it listen to the break signal.
int InterpreterSignalNumber() noexcept
{
    return SIGBREAK;
}

bool RaiseInterpreterSignal() noexcept
{
    return std::raise(SIGBREAK) == 0;
}

} // namespace OrvikOs
