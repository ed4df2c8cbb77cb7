#ifndef ORVIKOS_SLEEPER_H
#define ORVIKOS_SLEEPER_H

#include "OrvikOs/Export.h"

namespace OrvikOs {

/// A way to let time pass. Replaced in tests, together with the clock.
class ORVIKOS_API ISleeper
{
public:
    virtual ~ISleeper();

    /// Lets @p milliseconds pass, which is above 0. Called on any thread.
    virtual void SleepMs(int milliseconds) = 0;
};

/// Blocks the calling thread.
///
/// @param milliseconds  Values of 0 or less return at once, without asking the sleeper.
/// @thread  Any thread.
ORVIKOS_API void SleepMs(int milliseconds);

/// Replaces the way to let time pass.
///
/// @param sleeper  Not owned; must live until it is replaced and no other thread sleeps in it any
/// more. Null
///                 goes back to the system's sleep, which signals do not shorten.
/// @return the one in place before, null for the system's.
/// @thread  Any thread.
ORVIKOS_API ISleeper* SetSleeper(ISleeper* sleeper);

} // namespace OrvikOs

#endif
