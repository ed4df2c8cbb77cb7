#include "common/InterruptHandler.h"

#include <windows.h>

namespace OrvikOs {

namespace {

/// Called on a thread of the system's.
BOOL WINAPI handleConsoleEvent(DWORD kind)
{
    if (kind != CTRL_C_EVENT) {
        return FALSE;
    }
    NoteInterrupt();
    return TRUE;
}

} // namespace

bool InstallInterruptHandler()
{
    return SetConsoleCtrlHandler(&handleConsoleEvent, TRUE) != 0;
}

void RemoveInterruptHandler()
{
    SetConsoleCtrlHandler(&handleConsoleEvent, FALSE);
}

} // namespace OrvikOs
