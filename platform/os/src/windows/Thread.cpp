#include "Faults.h"

#include <OrvikOs/Thread.h>

#include <process.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace OrvikOs {

/// What a thread and the object that started it share. Whoever lets go last deletes it.
struct ThreadState
{
    std::function<void()> body;
    HANDLE handle = nullptr;
    std::atomic<bool> finished{false};
    std::atomic<int> owners{2}; ///< The thread and the object.

    void Release()
    {
        if (owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete this;
        }
    }
};

namespace {

constexpr std::size_t kSmallestStackBytes = 64 * 1024;
constexpr DWORD kTerminatedExitCode = 2;

using SetDescription = HRESULT(WINAPI*)(HANDLE thread, const wchar_t* description);

/// Gives the system's function that names threads; null on systems that are older than it.
SetDescription findSetDescription()
{
    HMODULE const kernel = GetModuleHandleW(L"kernel32.dll");
    return kernel == nullptr ? nullptr
                             : reinterpret_cast<SetDescription>(reinterpret_cast<void*>(
                                   GetProcAddress(kernel, "SetThreadDescription")));
}

unsigned __stdcall runThread(void* argument)
{
    auto* const state = static_cast<ThreadState*>(argument);
    ReserveStackForFaults();
    state->body();
    state->body = nullptr;
    state->finished.store(true, std::memory_order_release);
    state->Release();
    return 0;
}

} // namespace

std::uint32_t CurrentThreadId()
{
    return GetCurrentThreadId();
}

std::uint32_t CurrentProcessId()
{
    return GetCurrentProcessId();
}

void YieldThread()
{
    SwitchToThread();
}

Thread::Thread() = default;

Thread::~Thread()
{
    Join();
}

bool Thread::Start(std::function<void()> body, std::size_t stackBytes)
{
    if (m_id != 0) {
        return false;
    }
    auto state = std::make_unique<ThreadState>();
    state->body = std::move(body);
    const auto bytes = static_cast<unsigned>(std::max(stackBytes, kSmallestStackBytes));
    unsigned id = 0;
    // Suspended until the handle is where both owners of the state find it.
    const auto handle = _beginthreadex(nullptr, bytes, &runThread, state.get(),
                                       CREATE_SUSPENDED | STACK_SIZE_PARAM_IS_A_RESERVATION, &id);
    if (handle == 0) {
        return false;
    }
    m_state = state.release();
    m_state->handle = reinterpret_cast<HANDLE>(handle);
    m_id = id;
    m_handle = static_cast<std::uint64_t>(handle);
    ResumeThread(m_state->handle);
    return true;
}

bool Thread::SetName(const std::string& name)
{
    if (m_state == nullptr || HasFinished()) {
        return false;
    }
    const std::string kept = name.substr(0, kMaxNameLength);
    const std::wstring wide(kept.begin(), kept.end());
    const SetDescription setDescription = findSetDescription();
    return setDescription != nullptr && SUCCEEDED(setDescription(m_state->handle, wide.c_str()));
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
        WaitForSingleObject(m_state->handle, INFINITE);
        m_finished = true;
        CloseHandle(m_state->handle);
        std::exchange(m_state, nullptr)->Release();
    }
}

bool Thread::JoinFor(int timeoutMs)
{
    if (m_state != nullptr &&
        WaitForSingleObject(m_state->handle, static_cast<DWORD>(std::max(timeoutMs, 0))) !=
            WAIT_OBJECT_0) {
        return false;
    }
    Join();
    return true;
}

bool Thread::Park(int timeoutMs)
{
    if (m_state == nullptr || HasFinished()) {
        Join();
        return true;
    }
    const bool stopped =
        TerminateThread(m_state->handle, kTerminatedExitCode) != 0 &&
        WaitForSingleObject(m_state->handle, static_cast<DWORD>(std::max(timeoutMs, 1))) ==
            WAIT_OBJECT_0;
    Abandon(); // The thread's half of the state is never released.
    return stopped;
}

void Thread::Abandon()
{
    if (m_state != nullptr) {
        m_finished = HasFinished();
        CloseHandle(m_state->handle);
        std::exchange(m_state, nullptr)->Release();
    }
}

} // namespace OrvikOs
