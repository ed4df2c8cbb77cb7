#include "common/Platform.h"

#include <OrvikOs/Environment.h>
#include <OrvikOs/SystemError.h>
#include <OrvikOs/Utf8.h>

#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

namespace OrvikOs {

std::wstring SystemExecutablePath()
{
    std::vector<char> path(1024);
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) {
            return std::wstring();
        }
        if (static_cast<std::size_t>(length) < path.size()) {
            return Utf8ToWide(std::string_view(path.data(), static_cast<std::size_t>(length)));
        }
        path.resize(path.size() * 2);
    }
}

void WriteSystemDebug(const char* text) noexcept
{
    static const bool isWanted = EnvironmentVariable("ORVIK_DEBUG_OUTPUT") == L"1";
    if (!isWanted) {
        return;
    }
    std::size_t remaining = std::strlen(text);
    while (remaining > 0) {
        const ssize_t written = write(STDERR_FILENO, text, remaining);
        if (written <= 0) {
            return; // There is no other channel to report on.
        }
        text += written;
        remaining -= static_cast<std::size_t>(written);
    }
}

std::wstring SystemErrorText(unsigned errorCode)
{
    char buffer[256] = {};
    const char* const text = strerror_r(static_cast<int>(errorCode), buffer, sizeof buffer);
    return Utf8ToWide(text);
}

} // namespace OrvikOs
