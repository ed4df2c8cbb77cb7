// A library as somebody else builds it: without -fnon-call-exceptions, so that no exception table
// expects a machine fault, and with functions that the compiler takes for never throwing.

#include <cstring>
#include <string>

#define PLAIN_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

volatile int g_sink = 0;
volatile bool g_really = false; ///< Never set; the compiler cannot know.
int g_counter = 0;

struct Witness
{
    volatile bool* ran;
    ~Witness() { *ran = true; }
};

volatile bool g_ran = false;

__attribute__((noinline)) int readNull()
{
    const volatile int* volatile address = nullptr;
    return *address;
}

__attribute__((noinline)) void mayThrow(bool really)
{
    if (really) {
        throw 1;
    }
    g_sink = 2;
}

} // namespace

PLAIN_EXPORT int PlainNumber()
{
    return 42;
}

PLAIN_EXPORT int PlainCounter()
{
    return ++g_counter;
}

PLAIN_EXPORT void PlainRead()
{
    g_sink = readNull();
}

/// Faults before the first call that can throw: outside every entry of the function's table.
PLAIN_EXPORT void PlainGapBefore()
{
    const volatile int* volatile address = nullptr;
    const Witness witness{&g_ran};
    g_sink = *address;
    mayThrow(g_really);
}

/// Faults after the last call that can throw.
PLAIN_EXPORT void PlainGapAfter()
{
    const volatile int* volatile address = nullptr;
    const Witness witness{&g_ran};
    mayThrow(g_really);
    g_sink = *address;
}

/// Faults in a callee that the compiler knows not to throw, so that the call is left out of the
/// table.
PLAIN_EXPORT void PlainInferredNothrow()
{
    const Witness witness{&g_ran};
    mayThrow(g_really);
    g_sink = readNull();
}

PLAIN_EXPORT void PlainNoexcept() noexcept
{
    const Witness witness{&g_ran};
    g_sink = readNull();
    mayThrow(g_really);
}

/// Faults inside a try block whose handler the table does not connect with the fault.
PLAIN_EXPORT void PlainTry()
{
    try {
        g_sink = readNull();
        mayThrow(g_really);
    } catch (const std::string&) {
        g_sink = 3;
    }
}

/// Never comes to an end.
PLAIN_EXPORT void PlainSpin()
{
    const Witness witness{&g_ran};
    while (!g_really) {
        g_sink = g_sink + 1;
    }
    mayThrow(g_really);
}

/// Never comes to an end, in calls of the C library and of functions that may throw.
PLAIN_EXPORT void PlainSpinInCalls()
{
    const Witness witness{&g_ran};
    while (!g_really) {
        const std::string text(static_cast<std::size_t>(g_sink % 100 + 100), 'x');
        mayThrow(g_really && text.empty());
    }
}

/// Faults in a function of the C library.
PLAIN_EXPORT void PlainLibraryLeaf()
{
    const std::string text = "to keep a destructor due";
    std::size_t (*volatile length)(const char*) = &std::strlen;
    g_sink = static_cast<int>(length(nullptr) + text.size());
}
