#include "GoWrong.h"

#include <TambCommandsInfra/CancelToken.h>

#include <cstdlib>
#include <exception>
#include <limits>
#include <map>
#include <stdexcept>

#define PELLUX_TEST_FAULTS __attribute__((noinline, no_sanitize("address", "undefined", "thread")))

/// Calls its own pure virtual function while it is being constructed. Of a class that others can
/// see the compiler cannot know what is derived from it.
class Unfinished
{
public:
    Unfinished() { callIt(this); }
    virtual ~Unfinished() = default;
    virtual void Missing() = 0;

private:
    [[gnu::noipa]] static void callIt(Unfinished* object) { object->Missing(); }
};

namespace {

volatile int s_result;

PELLUX_TEST_FAULTS void writeNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

PELLUX_TEST_FAULTS void divide()
{
    volatile int zero = 0;
    s_result = 1 / zero;
}

PELLUX_TEST_FAULTS int recurse(int depth)
{
    volatile char frame[4096];
    frame[depth % 4096] = static_cast<char>(depth);
    const int below = depth < std::numeric_limits<int>::max() ? recurse(depth + 1) : 0;
    return below + frame[depth % 4096];
}

void overflowTheStack()
{
    s_result = recurse(0);
}

class Finished : public Unfinished
{
public:
    void Missing() override {}
};

void callPureVirtual()
{
    const Finished finished;
}

void fail()
{
    throw std::runtime_error("It does not work.");
}

void failOddly()
{
    throw 42;
}

void runUntilCancelled()
{
    for (;;)
        TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
}

void runForever()
{
    for (volatile bool forever = true; forever;) {
    }
}

} // namespace

void GoWrong(const std::string& how)
{
    static const std::map<std::string, void (*)()> kWays = {
        {"null", writeNull},         {"divide", divide},
        {"stack", overflowTheStack}, {"pure", callPureVirtual},
        {"abort", std::abort},       {"throw", fail},
        {"throw-oddly", failOddly},  {"cancellable", runUntilCancelled},
        {"forever", runForever},     {"terminate", std::terminate},
    };
    const auto found = kWays.find(how);
    if (found == kWays.end())
        throw std::invalid_argument("nobody goes wrong by: " + how);
    void (*volatile way)() = found->second;
    way();
    s_result = 0; // Keeps the call from becoming a jump.
}
