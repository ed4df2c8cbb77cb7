// Reports how it ends: by "null" (a null pointer on the main thread while another thread has a
// context), "stack" (an overflow of the main thread's stack) or "abort". The second argument is the
// report.

#include "OrvikCore/SignalHandlingContext.h"

#include <OrvikOs/FatalReport.h>

#include <cstdlib>
#include <future>
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

#if defined(__GNUC__)
__attribute__((noinline, no_sanitize("address", "undefined", "thread")))
#endif
int callWithoutEnd(int depth)
{
    volatile char much[4096];
    much[0] = static_cast<char>(depth);
    if (depth < 0)
        return 0;
    return callWithoutEnd(depth + 1) + much[0];
}

} // namespace

int main(int, char** arguments)
{
    const std::string how = arguments[1];
    OrvikOs::ReportFatalFaults();
    OrvikOs::SetFatalReportPath(arguments[2]);
    if (how == "abort")
        std::abort();
    std::promise<void> isReady;
    std::thread([&isReady] {
        const OrvikCore::SignalHandlingContext context;
        isReady.set_value();
        std::promise<void>().get_future().wait();
    }).detach();
    isReady.get_future().wait();
    int (*volatile overflow)(int) = callWithoutEnd;
    void (*volatile write)() = writeToNull;
    how == "stack" ? static_cast<void>(overflow(0)) : write();
    return 0;
}
