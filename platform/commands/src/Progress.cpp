#include "TambCommandsInfra/Progress.h"

#include "TambCommandsInfra/CallGate.h"

#include <OrvikOs/Clock.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <utility>

namespace TambCommandsInfra {

/// Outlives its owner while a report is on its way.
struct Progress::State
{
    static void Send(const std::shared_ptr<State>& state);
    void Deliver();

    std::atomic<std::uint64_t> nextMs{0}; ///< Earliest time of the next report inside the phase.
    std::mutex mutex;                     ///< Guards latest, hasPhase and isOnItsWay.
    ProgressReport latest;
    bool hasPhase = false;
    bool isOnItsWay = false; ///< A report is in the gate and will carry the latest state.

    std::mutex observerMutex; ///< Guards observer; held during its call.
    Observer observer;        ///< Empty for none.
};

void Progress::State::Send(const std::shared_ptr<State>& state)
{
    {
        const std::lock_guard<std::mutex> lock(state->mutex);
        if (state->isOnItsWay) {
            return;
        }
        state->isOnItsWay = true;
    }
    if (!CallGate::Post([state] { state->Deliver(); })) {
        const std::lock_guard<std::mutex> lock(state->mutex);
        state->isOnItsWay = false;
    }
}

void Progress::State::Deliver()
{
    ProgressReport report;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isOnItsWay = false;
        report = latest;
    }
    const std::lock_guard<std::mutex> lock(observerMutex);
    if (observer) {
        observer(report);
    }
}

Progress::Progress() : m_state(std::make_shared<State>()) {}

Progress::~Progress()
{
    SetObserver(nullptr);
}

Progress& Progress::Instance()
{
    static Progress& progress = *new Progress; // never destroyed: a stuck worker may still report
    return progress;
}

void Progress::SetObserver(Observer observer)
{
    const std::lock_guard<std::mutex> lock(m_state->observerMutex);
    m_state->observer = std::move(observer);
}

void Progress::BeginPhase(const std::wstring& phase)
{
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        m_state->latest = ProgressReport{phase};
        m_state->hasPhase = true;
    }
    m_state->nextMs.store(OrvikOs::Clock::NowMs() + kIntervalMs, std::memory_order_release);
    State::Send(m_state);
}

void Progress::Report(double fraction)
{
    const bool isLast = fraction >= 1.0;
    const std::uint64_t nowMs = OrvikOs::Clock::NowMs();
    if (std::isnan(fraction) ||
        (!isLast && nowMs < m_state->nextMs.load(std::memory_order_acquire))) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        const double within = std::clamp(fraction, 0.0, 1.0);
        if (!m_state->hasPhase || within <= m_state->latest.fraction) {
            return;
        }
        m_state->latest.fraction = within;
        m_state->nextMs.store(nowMs + kIntervalMs, std::memory_order_release);
    }
    State::Send(m_state);
}

void Progress::End()
{
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        if (!m_state->hasPhase) {
            return;
        }
        m_state->hasPhase = false;
        m_state->latest.isFinished = true;
    }
    State::Send(m_state);
}

} // namespace TambCommandsInfra
