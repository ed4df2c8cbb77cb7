#include "posix/Faults.h"
#include "posix/Paths.h"

#include <OrvikOs/FileWriting.h>
#include <OrvikOs/Utf8.h>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace OrvikOs {

namespace {

constexpr mode_t kPermissionBits = 07777;

/// Writes everything; a signal does not end it. @return false with errno set on failure.
bool writeAll(int descriptor, const char* data, std::size_t size) noexcept
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

/// Writes everything and closes. @return 0 or the number of the first error.
int writeAndClose(int descriptor, const void* data, std::size_t size)
{
    int error = writeAll(descriptor, static_cast<const char*>(data), size) ? 0 : errno;
    if (close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    return error;
}

/// Gives the file that @p path leads to, links resolved; @p path itself when it does not exist.
std::string resolved(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

/// Writes into a device or a pipe, which must not be replaced.
int writeInPlace(const std::string& path, const void* data, std::size_t size)
{
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    return descriptor < 0 ? errno : writeAndClose(descriptor, data, size);
}

/// Creates a new file beside @p path. @return its descriptor, or -1 with errno set.
int createTemporary(const std::string& path, std::string& temporary)
{
    static std::atomic<unsigned> counter{0};
    for (;;) {
        const unsigned number = counter.fetch_add(1, std::memory_order_relaxed);
        temporary = path + ".new-" + std::to_string(getpid()) + "-" + std::to_string(number);
        const int descriptor =
            open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
}

/// Writes a new file and puts it in the place of @p path. @return 0 or the number of the first
/// error.
int replaceFile(const std::string& path, const struct stat* existing, const void* data,
                std::size_t size)
{
    std::string temporary;
    const int descriptor = createTemporary(path, temporary);
    if (descriptor < 0) {
        return errno;
    }
    int error = 0;
    if (existing != nullptr && fchmod(descriptor, existing->st_mode & kPermissionBits) != 0) {
        error = errno;
    }
    const int writeError = writeAndClose(descriptor, data, size);
    error = error != 0 ? error : writeError;
    if (error == 0 && rename(temporary.c_str(), path.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(temporary.c_str());
    }
    return error;
}

} // namespace

bool WriteFileAtomically(const std::wstring& path, const void* data, std::size_t size,
                         std::wstring* errorText)
{
    const std::string target = resolved(WideToUtf8(path));
    struct stat status = {};
    const bool exists = Status(target, status);
    int error = 0;
    if (exists && S_ISDIR(status.st_mode)) {
        error = EISDIR;
    } else if (exists && !S_ISREG(status.st_mode)) {
        error = writeInPlace(target, data, size);
    } else if (exists && access(target.c_str(), W_OK) != 0) {
        error = errno;
    } else {
        error = replaceFile(target, exists ? &status : nullptr, data, size);
    }
    return error == 0 || FailWith(error, errorText);
}

bool WriteMarkerFile(const char* path, std::string_view text) noexcept
{
    const int descriptor = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return false;
    }
    const bool written = writeAll(descriptor, text.data(), text.size());
    return close(descriptor) == 0 && written;
}

void WriteStandardStream(StandardStream stream, std::string_view text) noexcept
{
    const int descriptor = stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO;
    // A standard stream that is closed leaves nowhere to report to.
    static_cast<void>(writeAll(descriptor, text.data(), text.size()));
}

void RestoreDefaultAbort() noexcept
{
    StopConvertingAborts();
}

} // namespace OrvikOs
