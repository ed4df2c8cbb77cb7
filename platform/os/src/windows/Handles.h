#ifndef ORVIKOS_WINDOWS_HANDLES_H
#define ORVIKOS_WINDOWS_HANDLES_H

#include <windows.h>

#include <string>

namespace OrvikOs {

/// Closes a handle at the end of its scope.
class OwnedHandle
{
public:
    explicit OwnedHandle(HANDLE handle) : m_handle(handle) {}
    ~OwnedHandle()
    {
        if (IsValid()) {
            CloseHandle(m_handle);
        }
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;

    HANDLE Get() const { return m_handle; }
    bool IsValid() const { return m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle; ///< Owned.
};

/// Stores the system's text for @p error in @p text when that is not null. @return false, for
/// callers to return.
bool FailWith(DWORD error, std::wstring* text);

} // namespace OrvikOs

#endif
