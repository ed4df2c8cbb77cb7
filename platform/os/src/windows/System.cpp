#include "common/Platform.h"

#include <OrvikOs/Environment.h>
#include <OrvikOs/FileWriting.h>
#include <OrvikOs/SystemError.h>

#include <windows.h>

#include <string>

namespace OrvikOs {

std::wstring SystemExecutablePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const auto size = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), size);
        if (length < size) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

void WriteSystemDebug(const char* text) noexcept
{
    static const bool isOnStandardError = EnvironmentVariable("ORVIK_DEBUG_OUTPUT") == L"1";
    OutputDebugStringA(text);
    if (isOnStandardError) {
        WriteStandardStream(StandardStream::Error, text);
    }
}

std::wstring SystemErrorText(unsigned errorCode)
{
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, errorCode, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text(length > 0 ? buffer : L"", length);
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' ')) {
        text.pop_back();
    }
    return text;
}

} // namespace OrvikOs
