#include <OrvikOs/Clock.h>

#include <atomic>
#include <chrono>

namespace OrvikOs {

namespace {

std::atomic<IClock*> g_clock{nullptr}; ///< Not owned; null means the system's clock.

std::uint64_t systemNowUs()
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::microseconds>(sinceStart).count());
}

} // namespace

IClock::~IClock() = default;

std::uint64_t Clock::NowUs()
{
    IClock* const clock = g_clock.load(std::memory_order_acquire);
    return clock != nullptr ? clock->NowUs() : systemNowUs();
}

std::uint64_t Clock::NowMs()
{
    return NowUs() / 1000;
}

IClock* SetClock(IClock* clock)
{
    return g_clock.exchange(clock, std::memory_order_acq_rel);
}

} // namespace OrvikOs
