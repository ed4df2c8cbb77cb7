#include "common/FaultThread.h"
#include "posix/Faults.h"

#include <OrvikOs/Thread.h>

#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <ctime>
#include <memory>
#include <mutex>
#include <utility>

namespace OrvikOs {

/// What a thread and the object that started it share. Whoever lets go last deletes it.
struct ThreadState
{
    std::function<void()> body;
    pthread_t handle = {};
    std::mutex mutex;
    std::condition_variable changed;
    std::uint32_t id = 0;              ///< Guarded by mutex; 0 until the thread runs.
    std::atomic<bool> finished{false}; ///< Written under mutex.
    sem_t parked = {};                 ///< Posted by the thread when it parks.
    std::atomic<int> owners{2};        ///< The thread and the object.

    ThreadState() { sem_init(&parked, 0, 0); }
    ~ThreadState() { sem_destroy(&parked); }

    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;

    void Release()
    {
        if (owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete this;
        }
    }
};

namespace {

constexpr std::size_t kSmallestStackBytes = 64 * 1024;
constexpr int kParkRetryMs =
    2; ///< Between two attempts while the thread is inside the memory allocator.

thread_local ThreadState* t_ownState ORVIKOS_HANDLER_TLS = nullptr;

int parkSignal()
{
    return SIGRTMIN + 6;
}

/// Stops the calling thread for good if it is the one that is meant and holds no lock of the
/// allocator.
void handlePark(int, siginfo_t* info, void* context)
{
    const int savedErrno = errno;
    ThreadState* const state = t_ownState;
    const bool isMeant = state != nullptr && info->si_code == SI_QUEUE &&
                         info->si_pid == getpid() && info->si_value.sival_ptr == state;
    if (isMeant && !IsInsideAllocator(context)) {
        sigset_t everything;
        sigfillset(&everything);
        pthread_sigmask(SIG_SETMASK, &everything, nullptr);
        sem_post(&state->parked);
        for (;;) {
            pause();
        }
    }
    errno = savedErrno;
}

bool installParkHandler()
{
    struct sigaction action = {};
    action.sa_sigaction = &handlePark;
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    sigemptyset(&action.sa_mask);
    return sigaction(parkSignal(), &action, nullptr) == 0;
}

/// Tells fault handling where the guard of the calling thread lies.
void publishGuard()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) {
        return;
    }
    void* stack = nullptr;
    std::size_t stackBytes = 0;
    std::size_t guardBytes = 0;
    // The address reported leaves the guard out: the guard lies just below it.
    if (pthread_attr_getstack(&attributes, &stack, &stackBytes) == 0 &&
        pthread_attr_getguardsize(&attributes, &guardBytes) == 0 &&
        guardBytes >= Thread::kGuardBytes) {
        const auto low = reinterpret_cast<std::uintptr_t>(stack);
        t_faultThread.stackLow = low;
        t_faultThread.guardLow = low - guardBytes;
    }
    pthread_attr_destroy(&attributes);
}

void* runThread(void* argument)
{
    auto* const state = static_cast<ThreadState*>(argument);
    t_ownState = state;
    publishGuard();
    {
        const std::lock_guard<std::mutex> lock(state->mutex);
        state->id = CurrentThreadId();
    }
    state->changed.notify_all();

    state->body();
    state->body = nullptr;

    FaultScope::RearmStackGuard(); // The system may give this stack to another thread.
    t_faultThread.guardLow = t_faultThread.stackLow = 0;
    t_ownState = nullptr;
    {
        const std::lock_guard<std::mutex> lock(state->mutex);
        state->finished.store(true, std::memory_order_release);
        state->changed.notify_all();
    }
    state->Release();
    return nullptr;
}

bool createThread(ThreadState& state, std::size_t stackBytes)
{
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) {
        return false;
    }
    const bool created =
        pthread_attr_setguardsize(&attributes, Thread::kGuardBytes) == 0 &&
        pthread_attr_setstacksize(&attributes, std::max(stackBytes, kSmallestStackBytes)) == 0 &&
        pthread_create(&state.handle, &attributes, &runThread, &state) == 0;
    pthread_attr_destroy(&attributes);
    return created;
}

/// Waits until the thread acknowledges, ends, or @p timeoutMs have passed.
bool waitForPark(ThreadState& state, int timeoutMs)
{
    timespec end = {};
    clock_gettime(CLOCK_MONOTONIC, &end);
    end.tv_sec += timeoutMs / 1000;
    end.tv_nsec += static_cast<long>(timeoutMs % 1000) * 1000000;
    if (end.tv_nsec >= 1000000000) {
        ++end.tv_sec;
        end.tv_nsec -= 1000000000;
    }
    int result = 0;
    do {
        result = sem_clockwait(&state.parked, CLOCK_MONOTONIC, &end);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

} // namespace

std::uint32_t CurrentThreadId()
{
    return static_cast<std::uint32_t>(gettid());
}

std::uint32_t CurrentProcessId()
{
    return static_cast<std::uint32_t>(getpid());
}

void YieldThread()
{
    sched_yield();
}

Thread::Thread() = default;

Thread::~Thread()
{
    Join();
}

bool Thread::Start(std::function<void()> body, std::size_t stackBytes)
{
    static const bool isParkReady = installParkHandler();
    if (m_id != 0 || !isParkReady) {
        return false;
    }
    auto state = std::make_unique<ThreadState>();
    state->body = std::move(body);
    if (!createThread(*state, stackBytes)) {
        return false;
    }
    m_state = state.release();
    std::unique_lock<std::mutex> lock(m_state->mutex);
    m_state->changed.wait(lock, [this] { return m_state->id != 0; });
    m_id = m_state->id;
    m_handle = static_cast<std::uint64_t>(m_state->handle);
    return true;
}

bool Thread::SetName(const std::string& name)
{
    if (m_state == nullptr) {
        return false;
    }
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    return !m_state->finished.load(std::memory_order_acquire) &&
           pthread_setname_np(m_state->handle, name.substr(0, kMaxNameLength).c_str()) == 0;
}

bool Thread::IsStarted() const
{
    return m_state != nullptr;
}

bool Thread::HasFinished() const
{
    return m_state != nullptr ? m_state->finished.load(std::memory_order_acquire) : m_finished;
}

std::uint32_t Thread::Id() const
{
    return m_id;
}

std::uint64_t Thread::NativeHandle() const
{
    return m_handle;
}

void Thread::Join()
{
    if (m_state != nullptr) {
        pthread_join(m_state->handle, nullptr);
        m_finished = true;
        std::exchange(m_state, nullptr)->Release();
    }
}

bool Thread::JoinFor(int timeoutMs)
{
    if (m_state != nullptr) {
        std::unique_lock<std::mutex> lock(m_state->mutex);
        const bool ended = m_state->changed.wait_for(
            lock, std::chrono::milliseconds(std::max(timeoutMs, 0)),
            [this] { return m_state->finished.load(std::memory_order_acquire); });
        if (!ended) {
            return false;
        }
    }
    Join();
    return true;
}

bool Thread::Park(int timeoutMs)
{
    int remainingMs = std::max(timeoutMs, 1);
    while (m_state != nullptr && !HasFinished()) {
        if (remainingMs <= 0) {
            Abandon();
            return false;
        }
        sigval value = {};
        value.sival_ptr = m_state;
        pthread_sigqueue(m_state->handle, parkSignal(), value);
        const int sliceMs = std::min(remainingMs, kParkRetryMs);
        if (waitForPark(*m_state, sliceMs)) {
            Abandon(); // The parked thread keeps its half of the state for ever.
            return true;
        }
        remainingMs -= sliceMs;
    }
    Join();
    return true;
}

void Thread::Abandon()
{
    if (m_state != nullptr) {
        pthread_detach(m_state->handle);
        m_finished = HasFinished();
        std::exchange(m_state, nullptr)->Release();
    }
}

} // namespace OrvikOs
