#include "common/InterruptHandler.h"

#include <OrvikOs/Interrupt.h>

#include <atomic>
#include <cstdlib>

namespace OrvikOs {

namespace {

std::atomic<bool> g_watched{false};   ///< A watch holds the handler.
std::atomic<bool> g_requested{false}; ///< Ctrl-C came and was not dealt with yet.
std::atomic<Event*> g_event{nullptr}; ///< The watch's; not owned.
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<Event*>::is_always_lock_free);

void letOthersWatch()
{
    g_event.store(nullptr, std::memory_order_release);
    g_watched.store(false, std::memory_order_release);
}

} // namespace

void NoteInterrupt() noexcept
{
    if (g_requested.exchange(true, std::memory_order_acq_rel)) {
        std::_Exit(InterruptWatch::kExitCode);
    }
    if (Event* const event = g_event.load(std::memory_order_acquire)) {
        event->Set();
    }
}

InterruptWatch::InterruptWatch()
{
    if (!m_event.Create() || g_watched.exchange(true, std::memory_order_acq_rel)) {
        return;
    }
    g_requested.store(false, std::memory_order_release);
    g_event.store(&m_event, std::memory_order_release);
    m_active = InstallInterruptHandler();
    if (!m_active) {
        letOthersWatch();
    }
}

InterruptWatch::~InterruptWatch()
{
    if (m_active) {
        RemoveInterruptHandler();
        letOthersWatch();
    }
}

bool InterruptWatch::IsActive() const
{
    return m_active;
}

bool InterruptWatch::WasRequested() const noexcept
{
    return m_active && g_requested.load(std::memory_order_acquire);
}

Event& InterruptWatch::RequestEvent()
{
    return m_event;
}

void InterruptWatch::Reset() noexcept
{
    if (m_active) {
        m_event.TryTake();
        g_requested.store(false, std::memory_order_release);
    }
}

} // namespace OrvikOs
