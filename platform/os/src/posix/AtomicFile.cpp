#include "posix/DescriptorWriting.h"
#include "posix/Paths.h"

#include <OrvikOs/AtomicFile.h>
#include <OrvikOs/Utf8.h>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace OrvikOs {

namespace {

constexpr mode_t kPermissionBits = 07777;

/// Gives the file that @p path leads to, links resolved; @p path itself when it does not exist.
std::string resolved(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
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

} // namespace

struct AtomicFile::State
{
    State() = default;
    ~State()
    {
        if (descriptor >= 0) {
            close(descriptor);
        }
        if (!temporary.empty()) {
            unlink(temporary.c_str());
        }
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    int openFor(const std::wstring& path);

    std::string target;
    std::string temporary; ///< Empty when the target is written in place, or has been replaced.
    int descriptor = -1;
};

/// @return 0 or the number of the error.
int AtomicFile::State::openFor(const std::wstring& path)
{
    target = resolved(WideToUtf8(path));
    struct stat status = {};
    const bool exists = Status(target, status);
    if (exists && S_ISDIR(status.st_mode)) {
        return EISDIR;
    }
    if (exists && !S_ISREG(status.st_mode)) {
        descriptor = open(target.c_str(), O_WRONLY | O_CLOEXEC);
        return descriptor < 0 ? errno : 0;
    }
    if (exists && access(target.c_str(), W_OK) != 0) {
        return errno;
    }
    std::string name;
    descriptor = createTemporary(target, name);
    if (descriptor < 0) {
        return errno;
    }
    temporary = std::move(name);
    return exists && fchmod(descriptor, status.st_mode & kPermissionBits) != 0 ? errno : 0;
}

AtomicFile::AtomicFile() = default;

AtomicFile::~AtomicFile()
{
    delete m_state;
}

/// Drops what was written. @return false, for callers to return.
bool AtomicFile::fail(unsigned long error)
{
    delete m_state;
    m_state = nullptr;
    return FailWith(static_cast<int>(error), &m_errorText);
}

bool AtomicFile::Open(const std::wstring& path)
{
    delete m_state;
    m_state = nullptr;
    m_errorText.clear();
    m_state = std::make_unique<State>().release();
    const int error = m_state->openFor(path);
    return error == 0 || fail(static_cast<unsigned long>(error));
}

bool AtomicFile::Write(const void* data, std::size_t size)
{
    if (m_state == nullptr) {
        return false;
    }
    return WriteAll(m_state->descriptor, static_cast<const char*>(data), size) ||
           fail(static_cast<unsigned long>(errno));
}

bool AtomicFile::Commit()
{
    if (m_state == nullptr) {
        return false;
    }
    const int closed = close(m_state->descriptor);
    m_state->descriptor = -1;
    if (closed != 0 || (!m_state->temporary.empty() &&
                        rename(m_state->temporary.c_str(), m_state->target.c_str()) != 0)) {
        return fail(static_cast<unsigned long>(errno));
    }
    m_state->temporary.clear();
    delete m_state;
    m_state = nullptr;
    return true;
}

const std::wstring& AtomicFile::ErrorText() const
{
    return m_errorText;
}

} // namespace OrvikOs
