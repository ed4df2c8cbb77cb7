#include "common/EndRequestHandler.h"

#include <signal.h>

#include <array>

namespace OrvikOs {

namespace {

struct Handled
{
    int number;
    struct sigaction previous; ///< What was in place before the handler.
};

std::array<Handled, 2> g_handled = {Handled{SIGTERM, {}}, Handled{SIGHUP, {}}};

void handleEndRequest(int)
{
    NoteEndRequest();
}

} // namespace

bool InstallEndRequestHandler()
{
    struct sigaction action = {};
    action.sa_handler = &handleEndRequest;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    bool isGood = true;
    for (Handled& handled : g_handled) {
        isGood = sigaction(handled.number, &action, &handled.previous) == 0 && isGood;
        // Whoever lets a program outlive its terminal (nohup) wants it to go on.
        if (handled.previous.sa_handler == SIG_IGN) {
            sigaction(handled.number, &handled.previous, nullptr);
        }
    }
    if (!isGood) {
        RemoveEndRequestHandler();
    }
    return isGood;
}

void RemoveEndRequestHandler()
{
    for (const Handled& handled : g_handled) {
        sigaction(handled.number, &handled.previous, nullptr);
    }
}

} // namespace OrvikOs
