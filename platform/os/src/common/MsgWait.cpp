#include "common/Platform.h"

#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Snapshot.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <vector>

namespace OrvikOs {

namespace {

struct Registration
{
    IWakeSource* source; ///< Not owned.
    std::uint32_t threadId;
};

/// Lives until the process ends: waits may happen in destructors of static objects.
Snapshot<std::vector<Registration>>& registrations()
{
    static auto* const list = new Snapshot<std::vector<Registration>>();
    return *list;
}

std::atomic<IMessageSource*> g_messageSource{nullptr}; ///< Not owned; null means the system's own.

bool isRegistered(IWakeSource* source)
{
    const auto list = registrations().Get();
    return std::any_of(list->begin(), list->end(),
                       [source](const Registration& entry) { return entry.source == source; });
}

/// Counts down the time of one wait. Real time, not the replaceable clock: the system waits in real
/// time.
class Deadline
{
public:
    explicit Deadline(int timeoutMs)
        : m_endless(timeoutMs < 0),
          m_end(std::chrono::steady_clock::now() +
                std::chrono::milliseconds(std::max(timeoutMs, 0)))
    {
    }

    /// Gives the milliseconds left, rounded up; -1 for a wait without end.
    int RemainingMs() const
    {
        if (m_endless) {
            return -1;
        }
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
    }

private:
    bool m_endless;
    std::chrono::steady_clock::time_point m_end;
};

/// Gives the shorter of two waits, where -1 is without end.
int shorterWait(int a, int b)
{
    if (a < 0 || b < 0) {
        return std::max(a, b);
    }
    return std::min(a, b);
}

/// Adds those of the calling thread.
void appendWakeHandles(std::vector<std::intptr_t>& handles)
{
    const std::uint32_t threadId = CurrentThreadId();
    const auto list = registrations().Get();
    for (const Registration& entry : *list) {
        if (entry.threadId == threadId) {
            handles.push_back(entry.source->WakeEvent().NativeHandle());
        }
    }
}

/// The single waits that one long wait is made of.
class WaitStep
{
public:
    /// @param event  Waited for too; may be null.
    WaitStep(Event* event, unsigned mask) : m_event(event), m_mask(mask) {}

    /// Waits until one of the calling thread's handles is ready, the host's queue is due to be
    /// looked at, or @p remainingMs have passed.
    HandleWait Run(IMessageSource* hostSource, int remainingMs)
    {
        collectHandles();
        const bool asksHost = hostSource != nullptr && m_mask != 0;
        const std::intptr_t input = asksHost ? hostSource->InputHandle() : -1;
        const bool waitsForInput = input != -1 && !m_inputIsStale;
        int timeoutMs = remainingMs;
        if (waitsForInput) {
            m_handles.push_back(input);
        } else if (asksHost) {
            timeoutMs = shorterWait(timeoutMs, std::max(hostSource->PollIntervalMs(), 1));
        }

        const bool asksSystem = hostSource == nullptr && SystemMessageSource() != nullptr;
        std::size_t index = 0;
        const HandleWait result =
            WaitForHandles(m_handles, timeoutMs, asksSystem ? m_mask : 0, index);
        // A descriptor that stays readable for input outside the mask must not keep the processor
        // busy: after it has ended a wait, the next step looks at the queue by time.
        m_inputIsStale =
            waitsForInput && result == HandleWait::Signalled && index + 1 == m_handles.size();
        return result;
    }

private:
    void collectHandles()
    {
        m_handles.clear();
        if (m_event != nullptr) {
            m_handles.push_back(m_event->NativeHandle());
        }
        appendWakeHandles(m_handles);
    }

    Event* m_event; ///< Not owned; may be null.
    unsigned m_mask;
    std::vector<std::intptr_t> m_handles;
    bool m_inputIsStale =
        false; ///< The input descriptor was readable and may have been so for other input.
};

bool hostHasInput(IMessageSource* hostSource, unsigned mask)
{
    return hostSource != nullptr && mask != 0 && hostSource->HasInput(mask);
}

bool hasWakeSource(std::uint32_t threadId)
{
    const auto list = registrations().Get();
    return std::any_of(list->begin(), list->end(), [threadId](const Registration& entry) {
        return entry.threadId == threadId;
    });
}

} // namespace

IMessageSource::~IMessageSource() = default;

std::intptr_t IMessageSource::InputHandle()
{
    return -1;
}

int IMessageSource::PollIntervalMs()
{
    return 10;
}

IWakeSource::~IWakeSource() = default;

IMessageSource* SetMessageSource(IMessageSource* source)
{
    return g_messageSource.exchange(source, std::memory_order_acq_rel);
}

IMessageSource* GetMessageSource()
{
    IMessageSource* const source = g_messageSource.load(std::memory_order_acquire);
    return source != nullptr ? source : SystemMessageSource();
}

void RegisterWakeSource(IWakeSource& source, std::uint32_t threadId)
{
    registrations().Update([&source, threadId](std::vector<Registration>& list) {
        const bool known =
            std::any_of(list.begin(), list.end(),
                        [&source](const Registration& entry) { return entry.source == &source; });
        if (!known) {
            list.push_back({&source, threadId});
        }
    });
}

void UnregisterWakeSource(IWakeSource& source)
{
    registrations().Update([&source](std::vector<Registration>& list) {
        std::erase_if(list,
                      [&source](const Registration& entry) { return entry.source == &source; });
    });
}

std::vector<std::intptr_t> WakeHandles()
{
    std::vector<std::intptr_t> handles;
    appendWakeHandles(handles);
    return handles;
}

bool ServeWakeSources()
{
    const std::uint32_t threadId = CurrentThreadId();
    const auto list = registrations().Get();
    bool served = false;
    for (const Registration& entry : *list) {
        // A source served before this one may have removed it.
        if (entry.threadId == threadId && isRegistered(entry.source) &&
            entry.source->WakeEvent().TryTake()) {
            entry.source->Serve();
            served = true;
        }
    }
    return served;
}

unsigned MsgWait(Event& event, int timeoutMs, unsigned mask)
{
    const Deadline deadline(timeoutMs);
    WaitStep step(&event, mask);
    HandleWait last = HandleWait::Signalled;
    for (;;) {
        if (!event.IsCreated()) {
            return kWaitFailed;
        }
        if (event.TryTake()) {
            return kWaitSignalled;
        }
        IMessageSource* const hostSource = g_messageSource.load(std::memory_order_acquire);
        if (last == HandleWait::Input || hostHasInput(hostSource, mask)) {
            return kWaitInput;
        }
        const bool served = ServeWakeSources();
        const int remainingMs = deadline.RemainingMs();
        if (!served && remainingMs == 0 && last == HandleWait::Timeout) {
            return kWaitTimeout;
        }
        last = step.Run(hostSource, served ? 0 : remainingMs);
        if (last == HandleWait::Failed) {
            return kWaitFailed;
        }
    }
}

unsigned WaitForWakeSources(int timeoutMs, unsigned mask)
{
    const Deadline deadline(timeoutMs);
    WaitStep step(nullptr, mask);
    HandleWait last = HandleWait::Signalled;
    for (;;) {
        IMessageSource* const hostSource = g_messageSource.load(std::memory_order_acquire);
        if (last == HandleWait::Input || hostHasInput(hostSource, mask)) {
            return kWaitInput;
        }
        if (ServeWakeSources()) {
            return kWaitSignalled;
        }
        const bool nothingToWaitFor =
            !hasWakeSource(CurrentThreadId()) && (GetMessageSource() == nullptr || mask == 0);
        if (nothingToWaitFor && timeoutMs < 0) {
            return kWaitFailed;
        }
        const int remainingMs = deadline.RemainingMs();
        if (remainingMs == 0 && last == HandleWait::Timeout) {
            return kWaitTimeout;
        }
        last = step.Run(hostSource, remainingMs);
        if (last == HandleWait::Failed) {
            return kWaitFailed;
        }
    }
}

} // namespace OrvikOs
