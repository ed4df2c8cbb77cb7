// Calls std::terminate inside a context. With an argument, the crash file is named by it.

#include "OrvikCore/SignalHandlingContext.h"

#include <exception>

int main(int argumentCount, char** arguments)
{
    if (argumentCount > 1) {
        OrvikCore::SignalHandlingContext::SetCrashFilePath(arguments[1]);
    }
    const OrvikCore::SignalHandlingContext context;
    std::terminate();
}
