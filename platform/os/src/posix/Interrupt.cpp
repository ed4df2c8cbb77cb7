#include <OrvikOs/Interrupt.h>

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace OrvikOs {

namespace {

std::atomic<bool> g_watched{false};   ///< A watch holds the handler.
std::atomic<bool> g_requested{false}; ///< Ctrl-C came and was not dealt with yet.
std::atomic<Event*> g_event{nullptr}; ///< The watch's; not owned.
struct sigaction g_previous = {};     ///< What was in place before the watch.
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<Event*>::is_always_lock_free);

void handleInterrupt(int)
{
    if (g_requested.exchange(true, std::memory_order_acq_rel)) {
        _exit(InterruptWatch::kExitCode);
    }
    if (Event* const event = g_event.load(std::memory_order_acquire)) {
        event->Set();
    }
}

} // namespace

InterruptWatch::InterruptWatch()
{
    if (!m_event.Create() || g_watched.exchange(true, std::memory_order_acq_rel)) {
        return;
    }
    g_requested.store(false, std::memory_order_release);
    g_event.store(&m_event, std::memory_order_release);
    struct sigaction action = {};
    action.sa_handler = &handleInterrupt;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    m_active = sigaction(SIGINT, &action, &g_previous) == 0;
    if (!m_active) {
        g_event.store(nullptr, std::memory_order_release);
        g_watched.store(false, std::memory_order_release);
    }
}

InterruptWatch::~InterruptWatch()
{
    if (m_active) {
        sigaction(SIGINT, &g_previous, nullptr);
        g_event.store(nullptr, std::memory_order_release);
        g_watched.store(false, std::memory_order_release);
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
