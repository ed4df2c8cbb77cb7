#include "window/EndRequests.h"

#include "runtime/Guarded.h"

#include <utility>

namespace Pellux {

EndRequests::EndRequests(std::function<void()> asked) : m_asked(std::move(asked))
{
    if (m_watch.IsActive())
        OrvikOs::RegisterWakeSource(*this);
}

EndRequests::~EndRequests()
{
    if (m_watch.IsActive())
        OrvikOs::UnregisterWakeSource(*this);
}

OrvikOs::Event& EndRequests::WakeEvent()
{
    return m_watch.RequestEvent();
}

void EndRequests::Serve()
{
    Guarded(m_asked);
}

} // namespace Pellux
