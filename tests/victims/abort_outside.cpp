// Calls abort() after a context has ended.

#include "OrvikCore/SignalHandlingContext.h"

#include <cstdlib>

int main()
{
    {
        const OrvikCore::SignalHandlingContext context;
    }
    std::abort();
}
