// Throws inside a context what nobody catches; the crash file is named by the argument.

#include "OrvikCore/SignalHandlingContext.h"

#include <stdexcept>

int main(int, char** arguments)
{
    OrvikCore::SignalHandlingContext::SetCrashFilePath(arguments[1]);
    const OrvikCore::SignalHandlingContext context;
    throw std::runtime_error("nobody catches this");
}
