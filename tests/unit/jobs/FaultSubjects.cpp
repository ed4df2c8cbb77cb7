#include "FaultSubjects.h"

#include <OrvikOs/FaultScope.h>

#include <cstdlib>
#include <limits>

#if defined(__GNUC__)
#define ORVIK_TEST_FAULTS __attribute__((noinline, no_sanitize("address", "undefined", "thread")))
#else
#define ORVIK_TEST_FAULTS
#endif

namespace {

volatile double s_result;

/// Calls its own pure virtual function while it is being constructed.
class Unfinished
{
public:
    Unfinished() { callIt(this); }
    virtual ~Unfinished() = default;
    virtual void Missing() = 0;

private:
    static void callIt(Unfinished* object)
    {
        Unfinished* volatile opaque = object;
        opaque->Missing();
    }
};

class Finished : public Unfinished
{
public:
    void Missing() override {}
};

ORVIK_TEST_FAULTS int recurse(int depth)
{
    volatile char frame[4096];
    frame[depth % 4096] = static_cast<char>(depth);
    const int below = depth < std::numeric_limits<int>::max() ? recurse(depth + 1) : 0;
    return below + frame[depth % 4096];
}

} // namespace

void runSubject(void (*subject)())
{
    void (*volatile opaque)() = subject;
    opaque();
    s_result = 0; // Keeps the call from becoming a jump.
}

ORVIK_TEST_FAULTS void writeToNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

void callPureVirtual()
{
    Finished finished;
}

void callAbort()
{
    std::abort();
}

void reportInvalidParameter()
{
    OrvikOs::RaiseInvalidParameter(L"copy", L"copy.cpp", 12, L"text != 0");
}

void reportInvalidParameterWithoutDetails()
{
    OrvikOs::RaiseInvalidParameter(nullptr, nullptr, 0, nullptr);
}

ORVIK_TEST_FAULTS void divideByZero()
{
    volatile double zero = 0.0;
    s_result = 1.0 / zero;
}

ORVIK_TEST_FAULTS void overflow()
{
    volatile double huge = std::numeric_limits<double>::max();
    s_result = huge * huge;
}

ORVIK_TEST_FAULTS void useDenormal()
{
    volatile double tiny = std::numeric_limits<double>::denorm_min();
    s_result = tiny + 1.0;
}

ORVIK_TEST_FAULTS void underflow()
{
    volatile double small = std::numeric_limits<double>::min();
    s_result = small * small;
}

ORVIK_TEST_FAULTS void roundInexactly()
{
    volatile double three = 3.0;
    s_result = 1.0 / three;
}

ORVIK_TEST_FAULTS void divideZeroByZero()
{
    volatile double zero = 0.0;
    s_result = zero / zero;
}

void overflowTheStack()
{
    s_result = recurse(0);
}
