#ifndef PELLUXBATCH_INTERRUPTHANDLING_H
#define PELLUXBATCH_INTERRUPTHANDLING_H

#include <OrvikOs/Interrupt.h>
#include <OrvikOs/MsgWait.h>

namespace PelluxBatch {

/// Ctrl-C cancels what runs and says so; a second one ends the program at once. @thread Main
/// thread.
class InterruptHandling : public OrvikOs::IWakeSource
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

private:
    OrvikOs::InterruptWatch m_watch;
    bool m_announced = false; ///< The user was told.
};

} // namespace PelluxBatch

#endif
