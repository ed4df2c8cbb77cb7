#ifndef ORVIKOS_TESTS_FAULTPROBE_H
#define ORVIKOS_TESTS_FAULTPROBE_H

#include <OrvikOs/FaultScope.h>

#include <string>

/// What came of running code that faults.
struct Outcome
{
    bool returned = false;            ///< The code came back without any exception.
    bool machineFault = false;        ///< OrvikOs::MachineFault was caught; record is its record.
    OrvikOs::EXCEPTION_RECORD record; ///< Of the machine fault.
    std::string text;                 ///< what() of the exception that was caught.
};

/// Runs @p subject inside a FaultScope, called through a pointer from a frame of its own.
Outcome RunInScope(void (*subject)());

/// The same without opening a scope.
Outcome RunAsIs(void (*subject)());

/// Tells whether a child's wait status says that it was ended by @p signal; in sanitizer builds, by
/// their report.
class EndedBy
{
public:
    explicit EndedBy(int signal) : m_signal(signal) {}
    bool operator()(int status) const;

private:
    int m_signal;
};

/// Tells whether the sanitizers are compiled in.
bool HasAddressSanitizer();
bool HasThreadSanitizer();

#endif
