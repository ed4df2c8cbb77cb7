#ifndef ORVIKOS_CLOCK_H
#define ORVIKOS_CLOCK_H

#include "OrvikOs/Export.h"

#include <cstdint>

namespace OrvikOs {

/// A source of time. Replaced in tests, so that animations and time-outs run without waiting.
class ORVIKOS_API IClock
{
public:
    virtual ~IClock();

    /// Gives microseconds since an arbitrary moment; never goes back. Called on any thread.
    virtual std::uint64_t NowUs() = 0;
};

/// The time of this process: monotonic, unrelated to the time of day.
///
/// @thread  Any thread.
class ORVIKOS_API Clock
{
public:
    Clock() = delete;

    /// Gives whole milliseconds since an arbitrary moment in the past.
    static std::uint64_t NowMs();

    /// Gives microseconds since the same moment.
    static std::uint64_t NowUs();
};

/// Replaces the source of time.
///
/// @param clock  Not owned; must live until it is replaced and no other thread asks for the time
/// any more.
///               Null goes back to the system's monotonic clock.
/// @return the one in place before, null for the system's.
/// @thread  Any thread.
ORVIKOS_API IClock* SetClock(IClock* clock);

} // namespace OrvikOs

#endif
