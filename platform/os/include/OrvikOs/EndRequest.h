#ifndef ORVIKOS_ENDREQUEST_H
#define ORVIKOS_ENDREQUEST_H

#include "OrvikOs/Event.h"
#include "OrvikOs/Export.h"

namespace OrvikOs {

/// While alive, the system's request to end (a session that ends, a terminal that closes: SIGTERM
/// and SIGHUP) sets an event instead of ending the program. The host registers a wake source over
/// it and closes as it should. One at a time per process: a second one made while the first lives
/// does nothing. Never active on Windows, where windows are told by messages.
///
/// @thread  Main thread.
class ORVIKOS_API EndRequestWatch
{
public:
    EndRequestWatch();

    /// Puts back what the system did before.
    ~EndRequestWatch();

    EndRequestWatch(const EndRequestWatch&) = delete;
    EndRequestWatch& operator=(const EndRequestWatch&) = delete;

    /// Tells whether this watch receives requests: false for a second one, or when the system
    /// refused.
    bool IsActive() const;

    /// Gives the event that each request sets; owned by the watch.
    Event& RequestEvent();

private:
    Event m_event;
    bool m_active = false; ///< This watch holds the process's handlers.
};

} // namespace OrvikOs

#endif
