#include <OrvikOs/Sleeper.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace OrvikOs {

namespace {

std::atomic<ISleeper*> g_sleeper{nullptr}; ///< Not owned; null means the system's sleep.

} // namespace

ISleeper::~ISleeper() = default;

void SleepMs(int milliseconds)
{
    if (milliseconds <= 0) {
        return;
    }
    if (ISleeper* const sleeper = g_sleeper.load(std::memory_order_acquire)) {
        sleeper->SleepMs(milliseconds);
        return;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

ISleeper* SetSleeper(ISleeper* sleeper)
{
    return g_sleeper.exchange(sleeper, std::memory_order_acq_rel);
}

} // namespace OrvikOs
