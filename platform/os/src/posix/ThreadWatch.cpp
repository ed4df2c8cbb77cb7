#include "OrvikOs/ThreadWatch.h"

#include "common/FaultThread.h"
#include "posix/Faults.h"

#include <fcntl.h>
#include <link.h>
#include <signal.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <mutex>
#include <utility>

namespace OrvikOs {

namespace {

thread_local constinit ThreadWatch* t_watch ORVIKOS_HANDLER_TLS = nullptr;

/// Known before any signal comes.
const auto g_pageBytes = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));

int watchSignal()
{
    return SIGRTMIN + 7;
}

bool lookInEvery(unsigned milliseconds, timer_t timer)
{
    itimerspec often = {};
    often.it_value.tv_nsec = often.it_interval.tv_nsec = long{milliseconds} * 1000000;
    return timer_settime(timer, 0, &often, nullptr) == 0;
}

std::uint64_t threadCpuMs()
{
    timespec used = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<std::uint64_t>(used.tv_sec) * 1000 +
           static_cast<std::uint64_t>(used.tv_nsec) / 1000000;
}

/// What LibraryCode looks for among the loaded libraries.
struct Search
{
    const std::string& prefix;
    std::vector<std::pair<std::uintptr_t, std::uintptr_t>> found;
};

int visitLibrary(dl_phdr_info* library, std::size_t, void* argument)
{
    Search& search = *static_cast<Search*>(argument);
    const char* const slash = std::strrchr(library->dlpi_name, '/');
    const char* const name = slash != nullptr ? slash + 1 : library->dlpi_name;
    if (std::strncmp(name, search.prefix.c_str(), search.prefix.size()) != 0) {
        return 0;
    }
    for (unsigned i = 0; i < library->dlpi_phnum; ++i) {
        const ElfW(Phdr)& segment = library->dlpi_phdr[i];
        if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X) != 0) {
            const std::uintptr_t begin = library->dlpi_addr + segment.p_vaddr;
            search.found.emplace_back(begin, begin + segment.p_memsz);
        }
    }
    return 0;
}

} // namespace

LibraryCode::LibraryCode(const std::string& prefix)
{
    Search search{prefix, {}};
    dl_iterate_phdr(&visitLibrary, &search);
    std::sort(search.found.begin(), search.found.end());
    for (const auto& [begin, end] : search.found) {
        m_regions.push_back({begin, end});
    }
}

bool LibraryCode::Contains(std::uintptr_t address) const noexcept
{
    const auto after =
        std::upper_bound(m_regions.begin(), m_regions.end(), address,
                         [](std::uintptr_t at, const Region& region) { return at < region.begin; });
    return after != m_regions.begin() && address < (after - 1)->end;
}

/// The signal's handler; a friend of the watches.
struct ThreadWatchHandler
{
    static void LookIn(int, siginfo_t* info, void* contextOfSystem)
    {
        const int savedErrno = errno;
        auto& context = *static_cast<ucontext_t*>(contextOfSystem);
        ThreadWatch* const watch = t_watch;
        if (watch != nullptr && info->si_code == SI_TIMER && info->si_value.sival_ptr == watch) {
            const ThreadWatch::Answer answer = watch->m_question(watch->m_context, threadCpuMs());
            hurry(*watch, answer != ThreadWatch::Answer::GoOn);
            if (answer == ThreadWatch::Answer::Interrupt) {
                interrupt(*watch, context);
            }
        }
        errno = savedErrno;
    }

private:
    static void hurry(ThreadWatch& watch, bool isHurried)
    {
        if (watch.m_isHurried != isHurried) {
            watch.m_isHurried = isHurried;
            lookInEvery(isHurried ? 1 : ThreadWatch::kIntervalMs,
                        reinterpret_cast<timer_t>(watch.m_timer));
        }
    }

    static void interrupt(ThreadWatch& watch, ucontext_t& context)
    {
#if defined(__x86_64__)
        FaultThread& thread = t_faultThread;
        if (thread.depth == 0 || thread.converting ||
            !watch.m_code->Contains(
                static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]))) {
            return;
        }
        thread.interrupter = watch.m_thrower;
        thread.interrupterContext = watch.m_context;
        FaultInfo fault;
        fault.kind = FaultKind::Interruption;
        RedirectToThrow(fault, context, thread);
#else
        static_cast<void>(watch);
        static_cast<void>(context);
#endif
    }
};

namespace {

bool installHandler()
{
    struct sigaction action = {};
    action.sa_sigaction = &ThreadWatchHandler::LookIn;
    action.sa_flags = SA_SIGINFO | SA_RESTART | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    return sigaction(watchSignal(), &action, nullptr) == 0;
}

} // namespace

ThreadWatch::ThreadWatch(const LibraryCode& code, Question question, Thrower thrower, void* context)
    : m_code(&code),
      m_question(question),
      m_thrower(thrower),
      m_context(context),
      m_outer(std::exchange(t_watch, this))
{
#if defined(__x86_64__) && !defined(__SANITIZE_THREAD__)
    static const bool isInstalled = installHandler();
    sigevent event = {};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = watchSignal();
    event.sigev_value.sival_ptr = this;
    event._sigev_un._tid = gettid();
    timer_t timer = {};
    if (!isInstalled || code.IsEmpty() || timer_create(CLOCK_MONOTONIC, &event, &timer) != 0) {
        return;
    }
    m_timer = reinterpret_cast<std::uintptr_t>(timer);
    m_isActive = lookInEvery(kIntervalMs, timer);
    if (!m_isActive) {
        timer_delete(timer);
    }
#endif
}

ThreadWatch::~ThreadWatch()
{
    // A signal that is on its way finds another watch, or none.
    t_watch = m_outer;
    if (m_isActive) {
        timer_delete(reinterpret_cast<timer_t>(m_timer));
    }
}

std::size_t ResidentBytes() noexcept
{
    const int file = open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return 0;
    }
    char text[128];
    const ssize_t length = read(file, text, sizeof text);
    close(file);
    // The second number counts the pages in memory.
    std::size_t pages = 0;
    int field = 0;
    for (ssize_t i = 0; i < length && field < 2; ++i) {
        if (text[i] == ' ') {
            ++field;
        } else if (field == 1) {
            pages = pages * 10 + static_cast<std::size_t>(text[i] - '0');
        }
    }
    return pages * g_pageBytes;
}

} // namespace OrvikOs
