#include "common/Platform.h"

#include <OrvikOs/Directory.h>
#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/Library.h>
#include <OrvikOs/SystemError.h>

#include <windows.h>

#include <utility>

namespace OrvikOs {

namespace {

/// Gives what to hand to the loader: a bare name becomes a path when the executable's folder has
/// such a file.
std::wstring locate(const std::wstring& fileName)
{
    if (FindLastSeparator(fileName) == std::wstring::npos) {
        const std::wstring beside = ExecutableFolder() + kPathSeparator + fileName;
        if (IsFile(beside)) {
            return beside;
        }
    }
    return fileName;
}

HMODULE toModule(void* handle)
{
    return static_cast<HMODULE>(handle);
}

} // namespace

bool Library::Load(const std::wstring& fileName)
{
    Close();
    m_errorCode = 0;
    m_errorText.clear();
    m_handle = LoadLibraryW(locate(fileName).c_str());
    if (m_handle == nullptr) {
        m_errorCode = GetLastError();
        m_errorText = SystemErrorText(m_errorCode);
        return false;
    }
    return true;
}

void* Library::Symbol(const char* name) const
{
    return m_handle != nullptr ? reinterpret_cast<void*>(GetProcAddress(toModule(m_handle), name))
                               : nullptr;
}

void Library::Close()
{
    if (m_handle != nullptr) {
        FreeLibrary(toModule(std::exchange(m_handle, nullptr)));
    }
}

} // namespace OrvikOs
