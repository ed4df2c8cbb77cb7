#include "Faults.h"
#include "Handles.h"

#include <OrvikOs/FileWriting.h>

#include <algorithm>

namespace OrvikOs {

namespace {

constexpr std::size_t kLargestWrite = 1u << 30; ///< The system takes the size as 32 bits.

/// Writes everything. @return false with the system's last error set on failure.
bool writeAll(HANDLE file, const char* data, std::size_t size) noexcept
{
    while (size > 0) {
        const auto part = static_cast<DWORD>(std::min(size, kLargestWrite));
        DWORD written = 0;
        if (WriteFile(file, data, part, &written, nullptr) == 0 || written == 0) {
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

} // namespace

bool WriteMarkerFile(const char* path, std::string_view text) noexcept
{
    wchar_t widePath[MAX_PATH] = {};
    if (MultiByteToWideChar(CP_UTF8, 0, path, -1, widePath, MAX_PATH) == 0) {
        return false;
    }
    const OwnedHandle file(CreateFileW(widePath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.IsValid() && writeAll(file.Get(), text.data(), text.size());
}

void WriteStandardStream(StandardStream stream, std::string_view text) noexcept
{
    HANDLE const handle =
        GetStdHandle(stream == StandardStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    // A standard stream that is closed leaves nowhere to report to.
    static_cast<void>(writeAll(handle, text.data(), text.size()));
}

void RestoreDefaultAbort() noexcept
{
    StopConvertingAborts();
}

} // namespace OrvikOs
