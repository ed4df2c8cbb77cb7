#include "common/Platform.h"

#include <poll.h>

#include <cerrno>
#include <chrono>

namespace OrvikOs {

namespace {

/// Polls until something is ready or the time is up; signals do not end the wait.
int pollThrough(std::vector<pollfd>& descriptors, int timeoutMs)
{
    using std::chrono::milliseconds;
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + milliseconds(timeoutMs < 0 ? 0 : timeoutMs);
    int remainingMs = timeoutMs;
    for (;;) {
        const int ready = poll(descriptors.data(), descriptors.size(), remainingMs);
        if (ready >= 0 || errno != EINTR) {
            return ready;
        }
        if (timeoutMs >= 0) {
            const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
            remainingMs = left.count() > 0 ? static_cast<int>(left.count()) : 0;
        }
    }
}

} // namespace

HandleWait WaitForHandles(const std::vector<std::intptr_t>& handles, int timeoutMs, unsigned,
                          std::size_t& index)
{
    std::vector<pollfd> descriptors;
    descriptors.reserve(handles.size());
    for (const std::intptr_t handle : handles) {
        descriptors.push_back({static_cast<int>(handle), POLLIN, 0});
    }
    const int ready = pollThrough(descriptors, timeoutMs);
    if (ready < 0) {
        return HandleWait::Failed;
    }
    for (std::size_t i = 0; i < descriptors.size(); ++i) {
        if ((descriptors[i].revents & POLLNVAL) != 0) {
            return HandleWait::Failed;
        }
        if (descriptors[i].revents != 0) {
            index = i;
            return HandleWait::Signalled;
        }
    }
    return HandleWait::Timeout;
}

// The host supplies the queue and the clipboard.
IMessageSource* SystemMessageSource()
{
    return nullptr;
}

IClipboard* SystemClipboard()
{
    return nullptr;
}

} // namespace OrvikOs
