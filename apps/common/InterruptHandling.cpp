#include "InterruptHandling.h"

#include <TambCommandsInfra/CancelToken.h>

#include <iostream>

namespace Pellux {

InterruptHandling::InterruptHandling()
{
    if (m_watch.IsActive())
        OrvikOs::RegisterWakeSource(*this);
}

InterruptHandling::~InterruptHandling()
{
    if (m_watch.IsActive())
        OrvikOs::UnregisterWakeSource(*this);
}

bool InterruptHandling::WasInterrupted() const
{
    return m_watch.WasRequested();
}

OrvikOs::Event& InterruptHandling::WakeEvent()
{
    return m_watch.RequestEvent();
}

void InterruptHandling::Serve()
{
    if (!m_announced)
        std::cerr << "Interrupted; cancelling what runs. Press Ctrl-C again to end at once."
                  << std::endl;
    m_announced = true;
    // A job that is queued and not begun yet has no number: look again until it has one.
    if (TambCommandsInfra::CancelToken::Instance().CancelCurrent() == 0)
        m_watch.RequestEvent().Set();
}

void InterruptHandling::NotifyJobStatus(OrvikCore::JobTicket*)
{
    if (WasInterrupted())
        m_watch.RequestEvent().Set();
}

} // namespace Pellux
