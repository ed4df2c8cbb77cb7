#ifndef PELLUX_RUNTIME_QTSLEEPER_H
#define PELLUX_RUNTIME_QTSLEEPER_H

#include <OrvikOs/Sleeper.h>

#include <Qt>
#include <atomic>

namespace Pellux {

class HeldInput;

/// Lets Qt work through its queue while the main thread pauses, as a camera does between the steps
/// of its way; what must not run beside a job is held. Other threads just sleep.
class QtSleeper final : public OrvikOs::ISleeper
{
public:
    /// Takes the place of the system's. Made on the main thread.
    /// @param held  Not owned; outlives the sleeper.
    explicit QtSleeper(HeldInput& held);

    /// Puts back what was there; no other thread may sleep in it any more.
    ~QtSleeper() override;

    QtSleeper(const QtSleeper&) = delete;
    QtSleeper& operator=(const QtSleeper&) = delete;

    void SleepMs(int milliseconds) override;

private:
    void sleepOnMainThread(int milliseconds);

    HeldInput& m_held;
    std::atomic<OrvikOs::ISleeper*> m_former{nullptr}; ///< Not owned; null for the system's.
    const Qt::HANDLE m_mainThread;
    int m_depth = 0; ///< A pause within what a pause lets run just sleeps; main thread.
};

} // namespace Pellux

#endif
