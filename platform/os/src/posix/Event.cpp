#include "common/Platform.h"

#include <OrvikOs/Event.h>
#include <OrvikOs/Utf8.h>

#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <set>
#include <utility>

namespace OrvikOs {

namespace {

/// Names claimed within this process, where the system has no abstract sockets.
struct ProcessNames
{
    std::mutex mutex;
    std::set<std::wstring> names;

    static ProcessNames& Instance()
    {
        static auto* const instance = new ProcessNames();
        return *instance;
    }
};

/// FNV-1a over the bytes; tells long names apart.
std::uint64_t hashOf(const std::string& bytes)
{
    std::uint64_t hash = 14695981039346656037u;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211u;
    }
    return hash;
}

/// Gives the name in the abstract name space: unique per user, at most @p capacity bytes.
std::string claimText(const std::wstring& name, std::size_t capacity)
{
    const std::string bytes = WideToUtf8(name);
    std::string text = "orvik." + std::to_string(getuid()) + "." + bytes;
    if (text.size() > capacity) {
        char hash[24];
        std::snprintf(hash, sizeof hash, "~%016llx",
                      static_cast<unsigned long long>(hashOf(bytes)));
        text.resize(capacity - std::strlen(hash));
        text += hash;
    }
    return text;
}

int closeDescriptor(std::intptr_t descriptor)
{
    return close(static_cast<int>(descriptor));
}

} // namespace

Event::Event() = default;

Event::~Event()
{
    Close();
}

bool Event::claimName(const std::wstring& name)
{
    const int claim = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (claim >= 0) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        // The byte left zero in front of the text is what makes the name abstract.
        const std::string text = claimText(name, sizeof address.sun_path - 1);
        std::memcpy(address.sun_path + 1, text.data(), text.size());
        const auto length =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
        if (bind(claim, reinterpret_cast<const sockaddr*>(&address), length) == 0) {
            m_claim = claim;
            return true;
        }
        const bool isTaken = errno == EADDRINUSE;
        close(claim);
        if (isTaken) {
            m_lastError = kErrorAlreadyExists;
            return false;
        }
    }

    ProcessNames& process = ProcessNames::Instance();
    const std::lock_guard<std::mutex> lock(process.mutex);
    if (!process.names.insert(name).second) {
        m_lastError = kErrorAlreadyExists;
        return false;
    }
    m_processClaim = name;
    return true;
}

void Event::releaseName()
{
    if (m_claim != -1) {
        closeDescriptor(std::exchange(m_claim, -1));
    }
    if (!m_processClaim.empty()) {
        ProcessNames& process = ProcessNames::Instance();
        const std::lock_guard<std::mutex> lock(process.mutex);
        process.names.erase(m_processClaim);
        m_processClaim.clear();
    }
}

bool Event::Create(const std::wstring& name)
{
    Close();
    m_lastError = 0;
    if (!name.empty() && !claimName(name)) {
        return false;
    }
    const int descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (descriptor < 0) {
        m_lastError = static_cast<unsigned>(errno);
        releaseName();
        return false;
    }
    m_handle = descriptor;
    return true;
}

bool Event::Create()
{
    return Create(std::wstring());
}

bool Event::IsCreated() const
{
    return m_handle != -1;
}

unsigned Event::LastError() const
{
    return m_lastError;
}

bool Event::Set() noexcept
{
    if (m_handle == -1) {
        return false;
    }
    const int savedErrno = errno;
    const std::uint64_t one = 1;
    // The counter is full only after 2^64 - 2 sets without a wait; the event is set then anyway.
    const bool written = write(static_cast<int>(m_handle), &one, sizeof one) == sizeof one;
    const bool isSet = written || errno == EAGAIN;
    errno = savedErrno;
    return isSet;
}

bool Event::TryTake() noexcept
{
    std::uint64_t count = 0;
    return m_handle != -1 && read(static_cast<int>(m_handle), &count, sizeof count) == sizeof count;
}

unsigned Event::Wait(int timeoutMs)
{
    if (m_handle == -1) {
        return kWaitFailed;
    }
    for (;;) {
        if (TryTake()) {
            return kWaitSignalled;
        }
        std::size_t index = 0;
        switch (WaitForHandles({m_handle}, timeoutMs, 0, index)) {
        case HandleWait::Signalled:
        case HandleWait::Input:
            break;
        case HandleWait::Timeout:
            return kWaitTimeout;
        case HandleWait::Failed:
            return kWaitFailed;
        }
    }
}

void Event::Close()
{
    releaseName();
    if (m_handle != -1) {
        closeDescriptor(std::exchange(m_handle, -1));
    }
}

std::intptr_t Event::NativeHandle() const
{
    return m_handle;
}

} // namespace OrvikOs
