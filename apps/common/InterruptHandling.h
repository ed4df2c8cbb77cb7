#ifndef APPSCOMMON_INTERRUPTHANDLING_H
#define APPSCOMMON_INTERRUPTHANDLING_H

#include <OrvikCore/IJobStatusObserver.h>
#include <OrvikOs/Interrupt.h>
#include <OrvikOs/MsgWait.h>

namespace Pellux {

/// Ctrl-C cancels what runs and says so; a second one ends the program at once.
///
/// After a Ctrl-C every further job is cancelled, too: start-up scripts come one after the other.
/// @thread Main thread, NotifyJobStatus() on the worker.
class InterruptHandling : public OrvikOs::IWakeSource, public OrvikCore::IJobStatusObserver
{
public:
    InterruptHandling();
    ~InterruptHandling() override;

    InterruptHandling(const InterruptHandling&) = delete;
    InterruptHandling& operator=(const InterruptHandling&) = delete;

    /// @return true once Ctrl-C was pressed.
    bool WasInterrupted() const;

    OrvikOs::Event& WakeEvent() override;

    /// Cancels the running job.
    void Serve() override;

    /// After a Ctrl-C, looks for the next job.
    void NotifyJobStatus(OrvikCore::JobTicket* ticket) override;

private:
    OrvikOs::InterruptWatch m_watch;
    bool m_announced = false; ///< The user was told.
};

} // namespace Pellux

#endif
