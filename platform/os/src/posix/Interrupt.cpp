#include "common/InterruptHandler.h"

#include <signal.h>

namespace OrvikOs {

namespace {

struct sigaction g_previous = {}; ///< What was in place before the handler.

void handleInterrupt(int)
{
    NoteInterrupt();
}

} // namespace

bool InstallInterruptHandler()
{
    struct sigaction action = {};
    action.sa_handler = &handleInterrupt;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGINT, &action, &g_previous) == 0;
}

void RemoveInterruptHandler()
{
    sigaction(SIGINT, &g_previous, nullptr);
}

} // namespace OrvikOs
