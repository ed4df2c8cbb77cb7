// Finds out that the dispatcher cannot start: its event's name is "taken", where it leaves main
// then; or the process has "exhausted" its descriptors, where it tries again with new ones. The
// reason and the debug output go to standard output.

#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/ProcessGlobals.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// @return true when the dispatcher could not start.
bool failsToStart()
{
    try {
        OrvikCore::JobDispatcher::Instance();
    } catch (const std::runtime_error& error) {
        std::puts(error.what());
        return true;
    }
    return false;
}

bool failsWhenTaken()
{
    OrvikOs::Event holder;
    holder.Create(L"Local\\JobDispatcherEvent_" + std::to_wstring(OrvikOs::CurrentThreadId()) +
                  L"_" + std::to_wstring(OrvikOs::CurrentProcessId()));
    return failsToStart();
}

bool failsWhileExhausted()
{
    std::vector<std::FILE*> files;
    while (std::FILE* file = std::fopen("/dev/null", "r")) {
        files.push_back(file);
    }
    const bool failed = failsToStart();
    for (std::FILE* file : files) {
        std::fclose(file);
    }
    return failed && !failsToStart();
}

} // namespace

int main(int, char** arguments)
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    OrvikOs::SetDebugSink([](const char* text) { std::fputs(text, stdout); });
    const bool good =
        std::string(arguments[1]) == "taken" ? failsWhenTaken() : failsWhileExhausted();
    return good ? 0 : 1;
}
