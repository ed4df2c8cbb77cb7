#include "posix/DescriptorWriting.h"
#include "posix/Faults.h"

#include <OrvikOs/FileWriting.h>

#include <fcntl.h>
#include <unistd.h>

namespace OrvikOs {

bool WriteMarkerFile(const char* path, std::string_view text) noexcept
{
    const int descriptor = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return false;
    }
    const bool written = WriteAll(descriptor, text.data(), text.size());
    return close(descriptor) == 0 && written;
}

void WriteStandardStream(StandardStream stream, std::string_view text) noexcept
{
    const int descriptor = stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO;
    // A standard stream that is closed leaves nowhere to report to.
    static_cast<void>(WriteAll(descriptor, text.data(), text.size()));
}

void RestoreDefaultAbort() noexcept
{
    StopConvertingAborts();
}

} // namespace OrvikOs
