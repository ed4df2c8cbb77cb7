#include <OrvikOs/Event.h>

#include <windows.h>

#include <utility>

namespace OrvikOs {

namespace {

HANDLE toHandle(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

Event::Event() = default;

Event::~Event()
{
    Close();
}

bool Event::claimName(const std::wstring& name)
{
    const wchar_t* const systemName = name.empty() ? nullptr : name.c_str();
    HANDLE const handle = CreateEventW(nullptr, /*bManualReset=*/FALSE,
                                       /*bInitialState=*/FALSE, systemName);
    if (handle == nullptr) {
        m_lastError = GetLastError();
        return false;
    }
    if (!name.empty() && GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(handle);
        m_lastError = kErrorAlreadyExists;
        return false;
    }
    m_handle = reinterpret_cast<std::intptr_t>(handle);
    return true;
}

void Event::releaseName()
{
    // The name goes with the handle.
    m_claim = -1;
    m_processClaim.clear();
}

bool Event::Create(const std::wstring& name)
{
    Close();
    m_lastError = 0;
    return claimName(name);
}

bool Event::Create()
{
    return Create(std::wstring());
}

bool Event::IsCreated() const
{
    return m_handle != -1;
}

unsigned Event::LastError() const
{
    return m_lastError;
}

bool Event::Set() noexcept
{
    return m_handle != -1 && SetEvent(toHandle(m_handle)) != 0;
}

bool Event::TryTake() noexcept
{
    return m_handle != -1 && WaitForSingleObject(toHandle(m_handle), 0) == WAIT_OBJECT_0;
}

unsigned Event::Wait(int timeoutMs)
{
    if (m_handle == -1) {
        return kWaitFailed;
    }
    return WaitForSingleObject(toHandle(m_handle),
                               timeoutMs < 0 ? INFINITE : static_cast<DWORD>(timeoutMs));
}

void Event::Close()
{
    releaseName();
    if (m_handle != -1) {
        CloseHandle(toHandle(std::exchange(m_handle, -1)));
    }
}

std::intptr_t Event::NativeHandle() const
{
    return m_handle;
}

} // namespace OrvikOs
