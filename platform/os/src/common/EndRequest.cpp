#include "common/EndRequestHandler.h"

#include <OrvikOs/EndRequest.h>

#include <atomic>

namespace OrvikOs {

namespace {

std::atomic<bool> g_watched{false};   ///< A watch holds the handlers.
std::atomic<Event*> g_event{nullptr}; ///< The watch's; not owned.
static_assert(std::atomic<Event*>::is_always_lock_free);

void letOthersWatch()
{
    g_event.store(nullptr, std::memory_order_release);
    g_watched.store(false, std::memory_order_release);
}

} // namespace

void NoteEndRequest() noexcept
{
    if (Event* const event = g_event.load(std::memory_order_acquire)) {
        event->Set();
    }
}

EndRequestWatch::EndRequestWatch()
{
    if (!m_event.Create() || g_watched.exchange(true, std::memory_order_acq_rel)) {
        return;
    }
    g_event.store(&m_event, std::memory_order_release);
    m_active = InstallEndRequestHandler();
    if (!m_active) {
        letOthersWatch();
    }
}

EndRequestWatch::~EndRequestWatch()
{
    if (m_active) {
        RemoveEndRequestHandler();
        letOthersWatch();
    }
}

bool EndRequestWatch::IsActive() const
{
    return m_active;
}

Event& EndRequestWatch::RequestEvent()
{
    return m_event;
}

} // namespace OrvikOs
