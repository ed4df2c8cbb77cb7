// Divides by zero: "inside" a context with floating-point control, where nobody catches the trap,
// with the crash file named by the second argument; or "outside", where it yields infinity.

#include "OrvikCore/SignalHandlingContext.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace {

double divide(volatile double* divisor)
{
    return 1.0 / *divisor;
}

} // namespace

int main(int, char** arguments)
{
    volatile double zero = 0.0;
    double (*volatile opaque)(volatile double*) = divide;
    if (std::string(arguments[1]) == "inside") {
        OrvikCore::SignalHandlingContext::SetCrashFilePath(arguments[2]);
        const OrvikCore::SignalHandlingContext context(/*floatingPointControl=*/true);
        std::printf("%d\n", std::isinf(opaque(&zero)));
    } else {
        {
            const OrvikCore::SignalHandlingContext context(/*floatingPointControl=*/true);
        }
        std::printf("%d\n", std::isinf(opaque(&zero)));
    }
    return 0;
}
