#include "common/FaultThread.h"
#include "posix/Faults.h"

#include <OrvikOs/FaultScope.h>
#include <OrvikOs/Thread.h>

#include <signal.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>

namespace OrvikOs {

namespace {

constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT};
constexpr std::size_t kSignalCount = sizeof kSignals / sizeof kSignals[0];

constexpr std::size_t kHandlerStackBytes = std::size_t{64} * 1024;
constexpr std::uint64_t kRedZoneBytes = 128; ///< Below the stack pointer, in use by leaf functions.
constexpr std::uint64_t kThrowingBytes =
    16384; ///< What the throw itself may need of the opened guard.
constexpr std::uintptr_t kRearmMarginBytes =
    4096; ///< Stack kept free above a guard before it is closed.
constexpr greg_t kFlagsToClear = 0x40000 | 0x400 | 0x100; ///< Alignment check, direction, trap.
constexpr std::uint32_t kFpStatusBits = 0x3F;

constexpr greg_t kPageFaultTrap = 14;
constexpr greg_t kBreakpointTrap = 3;
constexpr greg_t kInstructionFetch = 16; ///< Bit of a page fault's error code.

struct sigaction g_previous[kSignalCount] = {}; ///< What was in place before the first scope.
std::mutex g_installMutex;
unsigned g_threadsInScope = 0; ///< Guarded by g_installMutex.
std::atomic<bool> g_abortsConverted{true};

std::size_t slotOf(int signal)
{
    std::size_t slot = 0;
    while (slot + 1 < kSignalCount && kSignals[slot] != signal) {
        ++slot;
    }
    return slot;
}

/// Ends the handling by what was in place before the first scope.
void chain(int signal, siginfo_t* info, void* context)
{
    const struct sigaction& previous = g_previous[slotOf(signal)];
    if ((previous.sa_flags & SA_SIGINFO) != 0) {
        previous.sa_sigaction(signal, info, context);
        return;
    }
    const bool isSent = info->si_code <= 0;
    if (previous.sa_handler == SIG_IGN && isSent) {
        return;
    }
    if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN) {
        previous.sa_handler(signal);
        return;
    }
    // A machine fault happens again when the handler returns; what was sent, and a breakpoint,
    // which lies behind the program counter, do not: these are sent again, and arrive when the
    // handler has returned.
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(signal, &byDefault, nullptr);
    if (isSent || signal == SIGTRAP) {
        syscall(SYS_tgkill, getpid(), gettid(), signal);
    }
}

greg_t& registerOf(ucontext_t& context, int index)
{
    return context.uc_mcontext.gregs[index];
}

/// Opens the guard when the fault is an overflow of the calling thread's stack. @return true when
/// it is one.
bool openGuard(const siginfo_t& info, ucontext_t& context, FaultThread& thread)
{
    const auto address = reinterpret_cast<std::uintptr_t>(info.si_addr);
    if (registerOf(context, REG_TRAPNO) != kPageFaultTrap || thread.guardLow == 0 ||
        thread.guardOpen || address < thread.guardLow || address >= thread.stackLow) {
        return false;
    }
    thread.guardOpen = mprotect(reinterpret_cast<void*>(thread.guardLow),
                                thread.stackLow - thread.guardLow, PROT_READ | PROT_WRITE) == 0;
    return thread.guardOpen;
}

/// Makes the saved context fit for unwinding: the program counter must lie within the code at
/// fault.
void settleProgramCounter(int signal, const siginfo_t& info, ucontext_t& context)
{
    greg_t& rip = registerOf(context, REG_RIP);
    greg_t& rsp = registerOf(context, REG_RSP);
    const greg_t trap = registerOf(context, REG_TRAPNO);
    if (signal == SIGTRAP && trap == kBreakpointTrap) {
        rip -= 1; // The processor stops behind the breakpoint.
    } else if (trap == kPageFaultTrap && reinterpret_cast<greg_t>(info.si_addr) == rip &&
               (registerOf(context, REG_ERR) & kInstructionFetch) != 0) {
        // A call or jump into nothing: go back to the caller, whose address is on top of the stack.
        rip = *reinterpret_cast<const greg_t*>(rsp) - 1;
        rsp += static_cast<greg_t>(sizeof(greg_t));
    }
}

/// Forgets the floating-point errors in the saved context and keeps its masks.
void clearFpStatus(ucontext_t& context)
{
    if (fpregset_t const fp = context.uc_mcontext.fpregs) {
        fp->mxcsr &= ~kFpStatusBits;
        fp->swd = 0;
        fp->ftw = 0;
    }
}

/// Decides whether a signal is a fault of the code that the calling thread runs inside a scope.
bool isConvertible(int signal, const siginfo_t& info, const ucontext_t& context,
                   const FaultThread& thread)
{
    if (thread.depth == 0 || thread.converting) {
        return false;
    }
    if (signal == SIGABRT) {
        return info.si_code == SI_TKILL && info.si_pid == getpid() &&
               g_abortsConverted.load(std::memory_order_acquire);
    }
    return info.si_code > 0 && !MustNotThrowFrom(context);
}

/// Makes the interrupted thread go on in the thunk. @return false when there is no room on its
/// stack.
bool redirect(int signal, const siginfo_t& info, ucontext_t& context, FaultThread& thread)
{
    FaultInfo fault;
    fault.kind = signal == SIGABRT ? FaultKind::Abort : FaultKind::Machine;
    if (fault.kind == FaultKind::Machine) {
        fault.record = DescribeFault(signal, info, context);
        settleProgramCounter(signal, info, context);
    }
    if (signal == SIGSEGV && openGuard(info, context, thread)) {
        fault.record.ExceptionCode = EXCEPTION_STACK_OVERFLOW;
        fault.record.NumberParameters = 0;
    }

    return RedirectToThrow(fault, context, thread);
}

void handleFault(int signal, siginfo_t* info, void* contextOfSystem)
{
    const int savedErrno = errno;
    auto& context = *static_cast<ucontext_t*>(contextOfSystem);
    FaultThread& thread = t_faultThread;
    if (!isConvertible(signal, *info, context, thread) ||
        !redirect(signal, *info, context, thread)) {
        chain(signal, info, contextOfSystem);
    }
    errno = savedErrno;
}

/// The stack that handlers run on, one per thread; kept until the thread ends.
class HandlerStack
{
public:
    HandlerStack()
    {
        void* const memory = mmap(nullptr, kHandlerStackBytes, PROT_READ | PROT_WRITE,
                                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
        m_memory = memory == MAP_FAILED ? nullptr : memory;
    }

    ~HandlerStack()
    {
        Remove();
        if (m_memory != nullptr) {
            munmap(m_memory, kHandlerStackBytes);
        }
    }

    HandlerStack(HandlerStack&&) = delete;
    HandlerStack& operator=(HandlerStack&&) = delete;

    /// Makes the system use this stack. Does nothing when there is no memory: faults are then
    /// handled on the faulting stack, and only overflows cannot be.
    void Install()
    {
        if (m_memory != nullptr && !m_installed) {
            stack_t stack = {};
            stack.ss_sp = m_memory;
            stack.ss_size = kHandlerStackBytes;
            m_installed = sigaltstack(&stack, &m_previous) == 0;
        }
    }

    /// Puts back the stack that was in use before.
    void Remove()
    {
        if (m_installed) {
            sigaltstack(&m_previous, nullptr);
            m_installed = false;
        }
    }

private:
    void* m_memory = nullptr; ///< Owned.
    stack_t m_previous = {};
    bool m_installed = false;
};

thread_local HandlerStack t_handlerStack;

void installHandlers()
{
    LearnFaultRegions();
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        struct sigaction action = {};
        action.sa_sigaction = &handleFault;
        action.sa_flags = SA_SIGINFO | SA_ONSTACK;
        sigemptyset(&action.sa_mask);
        sigaction(kSignals[i], &action, &g_previous[i]);
    }
}

/// Puts back what was in place before the first scope, unless somebody else has taken the signal
/// since.
void removeHandlers()
{
    for (std::size_t i = 0; i < kSignalCount; ++i) {
        struct sigaction current = {};
        const bool isOurs = sigaction(kSignals[i], nullptr, &current) == 0 &&
                            (current.sa_flags & SA_SIGINFO) != 0 &&
                            current.sa_sigaction == &handleFault;
        if (isOurs) {
            sigaction(kSignals[i], &g_previous[i], nullptr);
        }
    }
}

} // namespace

bool RedirectToThrow(const FaultInfo& fault, ucontext_t& context, FaultThread& thread)
{
    const auto rsp = static_cast<std::uint64_t>(registerOf(context, REG_RSP));
    const std::uint64_t place = (rsp - kRedZoneBytes - sizeof(FaultFrame)) & ~std::uint64_t{15};
    if (thread.guardOpen && place < thread.guardLow + kThrowingBytes) {
        return false;
    }
    auto* const frame = reinterpret_cast<FaultFrame*>(place);
    const auto value = [&context](int index) {
        return static_cast<std::uint64_t>(registerOf(context, index));
    };
    frame->rip = value(REG_RIP);
    frame->rsp = rsp;
    frame->rbp = value(REG_RBP);
    frame->rbx = value(REG_RBX);
    frame->r12 = value(REG_R12);
    frame->r13 = value(REG_R13);
    frame->r14 = value(REG_R14);
    frame->r15 = value(REG_R15);
    frame->r10 = value(REG_R10);
    std::memcpy(&frame->fault, &fault, sizeof fault);

    registerOf(context, REG_RIP) = reinterpret_cast<greg_t>(&OrvikOs_FaultThunk);
    registerOf(context, REG_RSP) = static_cast<greg_t>(place);
    registerOf(context, REG_EFL) &= ~kFlagsToClear;
    clearFpStatus(context);
    thread.converting = true;
    return true;
}

void FaultScope::Enter()
{
    if (t_faultThread.depth == 0) {
        {
            const std::lock_guard<std::mutex> lock(g_installMutex);
            if (g_threadsInScope++ == 0) {
                installHandlers();
            }
        }
        t_handlerStack.Install();
    }
    RearmStackGuard();
    ++t_faultThread.depth;
}

void FaultScope::Leave()
{
    RearmStackGuard();
    if (t_faultThread.depth == 0 || --t_faultThread.depth > 0) {
        return;
    }
    t_handlerStack.Remove();
    const std::lock_guard<std::mutex> lock(g_installMutex);
    if (--g_threadsInScope == 0) {
        removeHandlers();
    }
}

bool FaultScope::RearmStackGuard()
{
    FaultThread& thread = t_faultThread;
    if (!thread.guardOpen) {
        return true;
    }
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    if (here < thread.stackLow + kRearmMarginBytes) {
        return false;
    }
    thread.guardOpen = mprotect(reinterpret_cast<void*>(thread.guardLow),
                                thread.stackLow - thread.guardLow, PROT_NONE) != 0;
    return !thread.guardOpen;
}

void StopConvertingAborts() noexcept
{
    g_abortsConverted.store(false, std::memory_order_release);
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(SIGABRT, &byDefault, nullptr);
}

} // namespace OrvikOs
