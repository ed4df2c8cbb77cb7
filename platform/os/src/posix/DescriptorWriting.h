#ifndef ORVIKOS_POSIX_DESCRIPTORWRITING_H
#define ORVIKOS_POSIX_DESCRIPTORWRITING_H

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace OrvikOs {

/// Writes everything; a signal does not end it. @return false with errno set on failure.
inline bool WriteAll(int descriptor, const char* data, std::size_t size) noexcept
{
    while (size > 0) {
        const ssize_t written = write(descriptor, data, size);
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace OrvikOs

#endif
