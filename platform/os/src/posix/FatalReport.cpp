#include "posix/DescriptorWriting.h"

#include <OrvikOs/FatalReport.h>

#include <execinfo.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace OrvikOs {

namespace {

struct FatalSignal
{
    int number;
    const char* name;
};

constexpr FatalSignal kSignals[] = {{SIGSEGV, "SIGSEGV"}, {SIGBUS, "SIGBUS"},
                                    {SIGFPE, "SIGFPE"},   {SIGILL, "SIGILL"},
                                    {SIGTRAP, "SIGTRAP"}, {SIGABRT, "SIGABRT"}};
constexpr std::size_t kSignalCount = sizeof kSignals / sizeof kSignals[0];

constexpr std::size_t kStackBytes = std::size_t{64} * 1024;
constexpr int kMostFrames = 100;

struct sigaction g_previous[kSignalCount] = {}; ///< What was in place before.
std::atomic<const char*> g_path{nullptr};
std::atomic<bool> g_isWatching{false};
std::atomic<bool> g_isReporting{false};
alignas(16) char g_stack[kStackBytes]; ///< Of the handler, for the thread that began to watch.

/// Lines of a report, put together without the allocator or the locale. What has no room is cut.
class ReportText
{
public:
    ReportText& Add(const char* text)
    {
        for (; *text != '\0' && m_size < sizeof m_text; ++text) {
            m_text[m_size++] = *text;
        }
        return *this;
    }

    ReportText& Add(std::uint64_t number, unsigned base)
    {
        char digits[24];
        char* first = digits + sizeof digits;
        *--first = '\0';
        do {
            *--first = "0123456789abcdef"[number % base];
            number /= base;
        } while (number != 0);
        return Add(first);
    }

    ReportText& AddHex(std::uint64_t number) { return Add("0x").Add(number, 16); }
    ReportText& AddDecimal(long number) { return Add(static_cast<std::uint64_t>(number), 10); }

    void WriteTo(int descriptor) const { static_cast<void>(WriteAll(descriptor, m_text, m_size)); }

private:
    char m_text[1024];
    std::size_t m_size = 0;
};

const FatalSignal* findSignal(int number)
{
    for (const FatalSignal& signal : kSignals) {
        if (signal.number == number) {
            return &signal;
        }
    }
    return nullptr;
}

void describe(const FatalSignal& signal, const siginfo_t& info, const ucontext_t& context,
              ReportText& text)
{
    const bool isSent = info.si_code <= 0;
    char name[32] = {};
    prctl(PR_GET_NAME, name);
    text.Add("The program was ended by signal ").AddDecimal(signal.number);
    text.Add(" (").Add(signal.name).Add(").\n");
    text.Add("Process: ").AddDecimal(getpid());
    text.Add("\nThread:  ").AddDecimal(syscall(SYS_gettid)).Add(" \"").Add(name).Add("\"");
    if (isSent) {
        text.Add("\nSent by: process ").AddDecimal(info.si_pid);
    } else {
        text.Add("\nAddress: ").AddHex(reinterpret_cast<std::uintptr_t>(info.si_addr));
    }
#if defined(__x86_64__)
    text.Add("\nAt:      ").AddHex(static_cast<std::uint64_t>(context.uc_mcontext.gregs[REG_RIP]));
#else
    static_cast<void>(context);
#endif
    text.Add("\nCalls, the last first:\n");
}

void writeReport(const FatalSignal& signal, const siginfo_t& info, const ucontext_t& context)
{
    const char* const path = g_path.load(std::memory_order_acquire);
    const int file =
        path == nullptr ? -1 : open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const int target = file < 0 ? STDERR_FILENO : file;
    ReportText text;
    describe(signal, info, context, text);
    text.WriteTo(target);
    void* frames[kMostFrames];
    const int count = backtrace(frames, kMostFrames);
    backtrace_symbols_fd(frames, count, target);
    if (file < 0) {
        return;
    }
    close(file);
    ReportText line;
    line.Add("Ended by signal ").AddDecimal(signal.number).Add(" (").Add(signal.name);
    line.Add("); the report is in ").Add(path).Add("\n");
    line.WriteTo(STDERR_FILENO);
}

/// Puts back what was there before; a machine fault happens again when the handler has returned,
/// what was sent does not and is sent again.
void handOn(int signal, const siginfo_t& info)
{
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        if (kSignals[i].number == signal) {
            sigaction(signal, &g_previous[i], nullptr);
        }
    }
    if (info.si_code <= 0 || signal == SIGTRAP) {
        syscall(SYS_tgkill, getpid(), syscall(SYS_gettid), signal);
    }
}

void handleFatal(int number, siginfo_t* info, void* context)
{
    const FatalSignal* const signal = findSignal(number);
    // A fault while the report is written ends the program without one.
    if (signal != nullptr && !g_isReporting.exchange(true)) {
        writeReport(*signal, *info, *static_cast<const ucontext_t*>(context));
    }
    handOn(number, *info);
}

} // namespace

void ReportFatalFaults() noexcept
{
    if (g_isWatching.exchange(true)) {
        return;
    }
    // What the unwinder loads on first use must not be loaded inside a handler.
    void* frame = nullptr;
    static_cast<void>(backtrace(&frame, 1));
    stack_t stack = {};
    if (sigaltstack(nullptr, &stack) == 0 && (stack.ss_flags & SS_DISABLE) != 0) {
        stack = {};
        stack.ss_sp = g_stack;
        stack.ss_size = sizeof g_stack;
        sigaltstack(&stack, nullptr);
    }
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        struct sigaction action = {};
        action.sa_sigaction = &handleFatal;
        action.sa_flags = SA_SIGINFO | SA_ONSTACK;
        sigemptyset(&action.sa_mask);
        sigaction(kSignals[i].number, &action, &g_previous[i]);
    }
}

void SetFatalReportPath(const char* path) noexcept
{
    g_path.store(path, std::memory_order_release);
}

} // namespace OrvikOs
