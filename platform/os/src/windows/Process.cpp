#include <OrvikOs/Process.h>

#include <windows.h>

namespace OrvikOs {

std::optional<std::uint64_t> ProcessStartTime(std::uint32_t processId)
{
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
    if (process == nullptr) {
        return std::nullopt;
    }
    FILETIME created = {};
    FILETIME ended = {};
    FILETIME kernel = {};
    FILETIME user = {};
    DWORD exitCode = 0;
    const bool runs = GetExitCodeProcess(process, &exitCode) != 0 && exitCode == STILL_ACTIVE &&
                      GetProcessTimes(process, &created, &ended, &kernel, &user) != 0;
    CloseHandle(process);
    if (!runs) {
        return std::nullopt;
    }
    return (static_cast<std::uint64_t>(created.dwHighDateTime) << 32) | created.dwLowDateTime;
}

} // namespace OrvikOs
