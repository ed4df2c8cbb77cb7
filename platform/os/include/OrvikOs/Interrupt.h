#ifndef ORVIKOS_INTERRUPT_H
#define ORVIKOS_INTERRUPT_H

#include "OrvikOs/Event.h"
#include "OrvikOs/Export.h"

namespace OrvikOs {

/// While alive, the user's Ctrl-C is a request and not the end.
///
/// The first Ctrl-C sets a flag and an event; a second one before Reset() ends the program at once
/// with exit code 130. The host looks at the flag, or registers a wake source over the event, and
/// cancels what runs. One at a time per process: a second one made while the first lives does
/// nothing and never sees a request.
///
/// @thread  Main thread; WasRequested() on any thread.
class ORVIKOS_API InterruptWatch
{
public:
    /// Exit code of a program that the second Ctrl-C has ended.
    static constexpr int kExitCode = 130;

    InterruptWatch();

    /// Puts back what the system did before on Ctrl-C.
    ~InterruptWatch();

    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    /// Tells whether this watch receives Ctrl-C: false for a second one, or when the system
    /// refused.
    bool IsActive() const;

    /// Tells whether Ctrl-C was pressed since construction or Reset().
    ///
    /// @thread  Any thread.
    bool WasRequested() const noexcept;

    /// Gives the event that the first Ctrl-C sets; owned by the watch.
    Event& RequestEvent();

    /// Forgets a request that was dealt with: the next Ctrl-C counts as the first again.
    void Reset() noexcept;

private:
    Event m_event;
    bool m_active = false; ///< This watch holds the process's handler.
};

} // namespace OrvikOs

#endif
