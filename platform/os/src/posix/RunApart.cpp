#include "posix/Descriptor.h"
#include "posix/DescriptorWriting.h"

#include <OrvikOs/RunApart.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <vector>

namespace OrvikOs {

namespace {

constexpr int kThrewExitCode = 1;
constexpr int kPollMs = 50;
constexpr std::size_t kPieceBytes = std::size_t{1} << 20;

// In the copy.

/// What was installed for faults and interrupts belongs to the process that was copied.
void resetSignals()
{
    struct sigaction plain = {};
    plain.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) {
        sigaction(number, &plain, nullptr); // Fails for those that cannot be changed.
    }
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);
    plain.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &plain, nullptr);
}

void closeStreams()
{
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nowhere < 0) {
        return;
    }
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
    }
}

void limitTo(__rlimit_resource_t resource, std::uint64_t soft, std::uint64_t hard)
{
    const rlimit limit = {soft, hard};
    setrlimit(resource, &limit);
}

/// The bytes that count against RLIMIT_DATA, and some more; 0 when the system does not tell.
std::uint64_t dataBytes()
{
    std::FILE* const file = std::fopen("/proc/self/statm", "re");
    if (file == nullptr) {
        return 0;
    }
    unsigned long long pages = 0;
    const int found = std::fscanf(file, "%*u %*u %*u %*u %*u %llu", &pages);
    std::fclose(file);
    return found == 1 ? pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) : 0;
}

void applyLimits([[maybe_unused]] const ApartLimits& limits)
{
    limitTo(RLIMIT_CORE, 0, 0);
    if (limits.processorSeconds > 0) {
        limitTo(RLIMIT_CPU, limits.processorSeconds, limits.processorSeconds + 1ULL);
    }
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const std::uint64_t before = dataBytes();
    if (limits.memoryBytes > 0 && before > 0) {
        limitTo(RLIMIT_DATA, before + limits.memoryBytes, before + limits.memoryBytes);
    }
#endif
}

[[noreturn]] void runCopy(const std::function<void(const ApartWriter& write)>& work,
                          const ApartLimits& limits, int descriptor, pid_t parent)
{
    resetSignals();
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(kThrewExitCode); // It has ended in the meantime.
    }
    closeStreams();
    applyLimits(limits);
    try {
        work([descriptor](const void* bytes, std::size_t count) {
            return WriteAll(descriptor, static_cast<const char*>(bytes), count);
        });
    } catch (...) {
        _exit(kThrewExitCode); // Told by the exit code: nothing of the copy outlives it.
    }
    _exit(0);
}

// In the process that was copied.

/// @return false when who takes wants no more.
bool takeAll(int descriptor, const std::function<bool(const void*, std::size_t)>& take)
{
    std::vector<char> piece(kPieceBytes);
    for (;;) {
        pollfd waited = {descriptor, POLLIN, 0};
        const int ready = poll(&waited, 1, kPollMs);
        if (ready <= 0) {
            if (!take(nullptr, 0)) {
                return false;
            }
            continue;
        }
        const ssize_t count = read(descriptor, piece.data(), piece.size());
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return true;
        }
        if (count > 0 && !take(piece.data(), static_cast<std::size_t>(count))) {
            return false;
        }
    }
}

ApartEnd endOf(pid_t copy)
{
    int status = 0;
    while (waitpid(copy, &status, 0) < 0) {
        if (errno != EINTR) {
            return ApartEnd::Faulted; // Somebody else has collected it; nobody knows how it ended.
        }
    }
    if (WIFEXITED(status)) {
        return WEXITSTATUS(status) == 0 ? ApartEnd::Returned : ApartEnd::Threw;
    }
    return WTERMSIG(status) == SIGXCPU ? ApartEnd::TimeUp : ApartEnd::Faulted;
}

/// Ends a copy that is not waited for otherwise, also when who takes throws.
class EndOfCopy
{
public:
    explicit EndOfCopy(pid_t copy) : m_copy(copy) {}
    ~EndOfCopy()
    {
        if (m_copy > 0) {
            kill(m_copy, SIGKILL);
            endOf(m_copy);
        }
    }
    EndOfCopy(const EndOfCopy&) = delete;
    EndOfCopy& operator=(const EndOfCopy&) = delete;

    ApartEnd Wait()
    {
        const ApartEnd end = endOf(m_copy);
        m_copy = 0;
        return end;
    }

private:
    pid_t m_copy;
};

} // namespace

ApartEnd RunApart(const std::function<void(const ApartWriter& write)>& work,
                  const ApartLimits& limits,
                  const std::function<bool(const void* bytes, std::size_t count)>& take)
{
    std::array<int, 2> ends = {-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return ApartEnd::Unavailable;
    }
    Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    fcntl(writing.Get(), F_SETPIPE_SZ, static_cast<int>(kPieceBytes));
    const pid_t self = getpid();
    const pid_t copy = fork();
    if (copy < 0) {
        return ApartEnd::Unavailable;
    }
    if (copy == 0) {
        runCopy(work, limits, writing.Get(), self);
    }
    EndOfCopy end(copy);
    writing.Close();
    if (!takeAll(reading.Get(), take)) {
        return ApartEnd::Stopped;
    }
    return end.Wait();
}

} // namespace OrvikOs
