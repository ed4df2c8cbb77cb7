// Writes through a null pointer: "after" a context has ended, or on "another" thread than the one
// that has a context.

#include "OrvikCore/SignalHandlingContext.h"

#include <string>
#include <thread>

namespace {

#if defined(__GNUC__)
__attribute__((noinline, no_sanitize("address", "undefined", "thread")))
#endif
void writeToNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

} // namespace

int main(int, char** arguments)
{
    void (*volatile opaque)() = writeToNull;
    if (std::string(arguments[1]) == "another") {
        const OrvikCore::SignalHandlingContext context;
        std::thread(opaque).join();
    } else {
        {
            const OrvikCore::SignalHandlingContext context;
        }
        opaque();
    }
    return 0;
}
