#include "TambCommandsInfra/CallGate.h"

#include "ServiceTexts.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Event.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/MsgWait.h>

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

namespace TambCommandsInfra {

namespace {

/// Runs a task and gives what it throws, null for nothing.
///
/// The exception object is released here before the result is handed on, so that afterwards only
/// one thread at a time refers to it. The call through the pointer keeps a fault out of this frame.
std::exception_ptr runCatching(void (*function)(void*), void* task) noexcept
{
    try {
        function(task);
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

void traceLostException(const std::exception_ptr& error) noexcept
{
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& exception) {
        OrvikOs::WriteDebug("-- Exception in a posted call: ");
        OrvikOs::WriteDebug(exception.what());
        OrvikOs::WriteDebug("\n");
    } catch (...) {
        OrvikOs::WriteDebug("-- Unknown exception in a posted call\n");
    }
}

/// A call whose caller waits; lives on the caller's stack. Its fields are guarded by the mutex of
/// the gate's state, and nobody touches it once its status is Done or Refused.
struct PendingCall
{
    enum class Status
    {
        Waiting, ///< Queued, or running on the main thread.
        Done,    ///< The function has returned or thrown.
        Refused, ///< The gate was closed before the function was begun.
    };

    void (*function)(void*) = nullptr;
    void* task = nullptr; ///< The caller's; argument of the function.
    Status status = Status::Waiting;
    std::exception_ptr error = nullptr; ///< What the function has thrown.
};

} // namespace

struct CallGate::State final : OrvikOs::IWakeSource
{
    /// One element of the queue: a call or a posted function, never both.
    struct Entry
    {
        PendingCall* call = nullptr;              ///< Not owned; on its caller's stack.
        std::unique_ptr<Posted> posted = nullptr; ///< Owned.
        std::size_t bytes = 0;                    ///< What a posted function counts.
    };

    OrvikOs::Event& WakeEvent() override { return m_wake; }
    void Serve() override { Drain(); }

    void RunCall(PendingCall& call);
    bool Enqueue(std::unique_ptr<Posted> posted, std::size_t bytes);
    void Close();
    std::size_t Drain();

    const std::thread::id m_mainThread = std::this_thread::get_id();
    OrvikOs::Event m_wake;               ///< Set whenever something is queued.
    std::mutex m_mutex;                  ///< Guards what follows; never held while a function runs.
    std::condition_variable m_callEnded; ///< A call is Done or Refused.
    std::condition_variable m_spaceFreed; ///< Posts may go on, or the gate is closed.
    std::deque<Entry> m_queue;            ///< Oldest first.
    std::size_t m_pendingBytes = 0;       ///< Sum over m_queue.
    bool m_closed = false;

private:
    void push(Entry entry, std::unique_lock<std::mutex>& lock);
    bool pop(Entry& entry, std::size_t& remaining);
    void run(Entry& entry);
};

namespace {

/// The gate of the process. Never destroyed: threads may ask for it until the very end.
template <typename State> struct CurrentGate
{
    std::mutex mutex;
    std::shared_ptr<State> state; ///< Null while there is no gate.

    static CurrentGate& Instance()
    {
        static CurrentGate& current = *new CurrentGate;
        return current;
    }

    static std::shared_ptr<State> Get()
    {
        CurrentGate& current = Instance();
        const std::lock_guard<std::mutex> lock(current.mutex);
        return current.state;
    }
};

template <typename State> bool runsInline(const std::shared_ptr<State>& state)
{
    return !state || state->m_mainThread == std::this_thread::get_id();
}

} // namespace

void CallGate::State::push(Entry entry, std::unique_lock<std::mutex>& lock)
{
    const bool wasEmpty = m_queue.empty();
    m_pendingBytes += entry.bytes;
    m_queue.push_back(std::move(entry));
    lock.unlock();
    if (wasEmpty) {
        m_wake.Set();
    }
}

void CallGate::State::RunCall(PendingCall& call)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_closed) {
        throw std::runtime_error(kApplicationClosing);
    }
    push(Entry{&call}, lock);

    lock.lock();
    m_callEnded.wait(lock, [&call] { return call.status != PendingCall::Status::Waiting; });
    lock.unlock();

    if (call.status == PendingCall::Status::Refused) {
        throw std::runtime_error(kApplicationClosing);
    }
    if (call.error) {
        std::rethrow_exception(std::move(call.error));
    }
}

bool CallGate::State::Enqueue(std::unique_ptr<Posted> posted, std::size_t bytes)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_spaceFreed.wait(lock, [this] { return m_closed || m_pendingBytes < kMaxPendingBytes; });
    if (m_closed) {
        return false;
    }
    push(Entry{nullptr, std::move(posted), bytes}, lock);
    return true;
}

void CallGate::State::Close()
{
    std::deque<Entry> dropped; // destroyed without the lock: posted functions may own anything
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_closed = true;
        m_pendingBytes = 0;
        dropped.swap(m_queue);
        for (const Entry& entry : dropped) {
            if (entry.call) {
                entry.call->status = PendingCall::Status::Refused;
            }
        }
        m_callEnded.notify_all();
        m_spaceFreed.notify_all();
    }
}

bool CallGate::State::pop(Entry& entry, std::size_t& remaining)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_queue.empty()) {
        remaining = 0;
        return false;
    }
    entry = std::move(m_queue.front());
    m_queue.pop_front();
    remaining = m_queue.size();
    m_pendingBytes -= entry.bytes;
    if (entry.bytes > 0 && m_pendingBytes < kMaxPendingBytes) {
        m_spaceFreed.notify_all();
    }
    return true;
}

void CallGate::State::run(Entry& entry)
{
    if (entry.posted) {
        const auto runPosted = [](void* posted) { static_cast<Posted*>(posted)->Run(); };
        if (const std::exception_ptr error = runCatching(runPosted, entry.posted.get())) {
            traceLostException(error);
        }
        return;
    }
    std::exception_ptr error = runCatching(entry.call->function, entry.call->task);
    const std::lock_guard<std::mutex> lock(m_mutex);
    entry.call->error = std::move(error);
    entry.call->status = PendingCall::Status::Done;
    m_callEnded.notify_all();
}

std::size_t CallGate::State::Drain()
{
    std::size_t queued = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        queued = m_queue.size();
    }
    if (queued == 0) {
        return 0;
    }

    const OrvikOs::FaultScope faults;
    std::size_t done = 0;
    std::size_t remaining = 0;
    for (; done < queued; ++done) {
        Entry entry;
        if (!pop(entry, remaining)) {
            break;
        }
        // The wait that called may be left for another inside the function: what is still queued
        // must wake that one, too.
        if (remaining > 0) {
            m_wake.Set();
        }
        run(entry);
    }
    return done;
}

CallGate::CallGate() : m_state(std::make_shared<State>())
{
    if (!m_state->m_wake.Create()) {
        throw std::runtime_error("The call gate has no wake event.");
    }
    auto& current = CurrentGate<State>::Instance();
    {
        const std::lock_guard<std::mutex> lock(current.mutex);
        if (current.state) {
            throw std::logic_error("A call gate exists already.");
        }
        current.state = m_state;
    }
    OrvikOs::RegisterWakeSource(*m_state);
}

CallGate::~CallGate()
{
    Close();
    OrvikOs::UnregisterWakeSource(*m_state);
    auto& current = CurrentGate<State>::Instance();
    const std::lock_guard<std::mutex> lock(current.mutex);
    current.state.reset();
}

bool CallGate::RunsInline()
{
    return runsInline(CurrentGate<State>::Get());
}

void CallGate::CloseCurrent()
{
    if (const std::shared_ptr<State> state = CurrentGate<State>::Get()) {
        state->Close();
    }
}

void CallGate::Close()
{
    m_state->Close();
}

bool CallGate::IsClosed() const
{
    const std::lock_guard<std::mutex> lock(m_state->m_mutex);
    return m_state->m_closed;
}

std::size_t CallGate::Drain()
{
    return m_state->Drain();
}

void CallGate::runAndWait(Invoke function, void* task)
{
    const std::shared_ptr<State> state = CurrentGate<State>::Get();
    if (runsInline(state)) {
        function(task);
        return;
    }
    PendingCall call{function, task};
    state->RunCall(call);
}

bool CallGate::enqueue(std::unique_ptr<Posted> posted, std::size_t payloadBytes)
{
    const std::shared_ptr<State> state = CurrentGate<State>::Get();
    if (runsInline(state)) {
        posted->Run();
        return true;
    }
    return state->Enqueue(std::move(posted), payloadBytes + kBytesPerPost);
}

} // namespace TambCommandsInfra
