#include "kernel/KernelWatch.h"

#include "kernel/KernelGuard.h"

#include <OrvikOs/ThreadWatch.h>
#include <TambCommandsInfra/CancelToken.h>

#include <Standard_Failure.hxx>

#include <algorithm>
#include <utility>

namespace OrvikCad {

namespace {

using OrvikOs::ThreadWatch;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::JobCancelled;

constexpr std::uint64_t kLeastSilentMs = 50;
constexpr std::uint64_t kLaterSilentMs = 10'000;
constexpr std::size_t kMegabyte = std::size_t{1} << 20;

constexpr char kNoEnd[] = "the computation does not come to an end";
constexpr char kTooMuchMemory[] = "the computation takes more and more memory";

const OrvikOs::LibraryCode& kernelCode()
{
    static const OrvikOs::LibraryCode code("libTK");
    return code;
}

/// Watches the kernel on one thread. The looks come from a signal handler.
class KernelWatch
{
public:
    explicit KernelWatch(KernelBudget& budget);
    ~KernelWatch();
    KernelWatch(const KernelWatch&) = delete;
    KernelWatch& operator=(const KernelWatch&) = delete;

    /// What runs on the thread from now on gives back what was made; those around end, too.
    void BeginCleanup() noexcept
    {
        for (KernelWatch* watch = this; watch; watch = watch->m_outer)
            watch->m_isCleaning.store(true, std::memory_order_relaxed);
    }

    void EndCleanup() noexcept
    {
        for (KernelWatch* watch = this; watch; watch = watch->m_outer)
            watch->m_isCleaning.store(false, std::memory_order_relaxed);
    }

    void ShowSignOfLife() noexcept
    {
        m_signs.store(m_signs.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    }

private:
    enum class Reason
    {
        None,
        Cancelled,
        Silent,
        Memory,
    };

    static ThreadWatch::Answer lookIn(void* context, std::uint64_t cpuMs) noexcept
    {
        auto& watch = *static_cast<KernelWatch*>(context);
        watch.m_reason = watch.reasonToEnd(cpuMs);
        if (watch.m_reason != Reason::None)
            return ThreadWatch::Answer::Interrupt;
        return watch.m_isGrowing ? ThreadWatch::Answer::GoOnClosely : ThreadWatch::Answer::GoOn;
    }

    Reason reasonToEnd(std::uint64_t cpuMs) noexcept;
    bool takesTooMuch() noexcept;
    static void endIt(void* context);

    KernelBudget& m_budget;     ///< Not owned.
    const CancelToken& m_token; ///< Not owned.
    KernelWatch* m_outer;       ///< Of the same thread; not owned, null for none.
    std::atomic<std::uint32_t> m_signs{1};
    std::atomic<bool> m_isCleaning{false};
    std::uint32_t m_seenSigns = 0;   ///< At the last look.
    std::uint64_t m_silentSince = 0; ///< Processor time of the thread.
    std::size_t m_bytesBefore = 0; ///< Size of the process when the silence began; 0 not known yet.
    bool m_isGrowing = false;      ///< Takes much of what it may.
    bool m_isCancelled = false;    ///< At the last look.
    std::uint64_t m_cancelledSince = 0; ///< Processor time of the thread.
    Reason m_reason = Reason::None;
    ThreadWatch m_watch; ///< Last, so that it looks at whole objects only.
};

thread_local KernelWatch* t_watch = nullptr;

KernelWatch::KernelWatch(KernelBudget& budget)
    : m_budget(budget),
      m_token(CancelToken::Instance()),
      m_outer(std::exchange(t_watch, this)),
      m_watch(kernelCode(), &lookIn, &endIt, this)
{
}

KernelWatch::~KernelWatch()
{
    t_watch = m_outer;
    if (m_outer)
        m_outer->ShowSignOfLife();
}

KernelWatch::Reason KernelWatch::reasonToEnd(std::uint64_t cpuMs) noexcept
{
    if (m_token.IsCancelled()) {
        if (!m_isCancelled)
            m_cancelledSince = cpuMs;
        m_isCancelled = true;
        const unsigned patienceMs =
            m_isCleaning.load(std::memory_order_relaxed) ? kCleanupPatienceMs : kCancelPatienceMs;
        return cpuMs - m_cancelledSince > patienceMs ? Reason::Cancelled : Reason::None;
    }
    const std::uint32_t signs = m_signs.load(std::memory_order_relaxed);
    if (signs != m_seenSigns) {
        m_seenSigns = signs;
        m_silentSince = cpuMs;
        m_bytesBefore = 0;
        m_isGrowing = false;
        return Reason::None;
    }
    if (cpuMs - m_silentSince > m_budget.SilentMs())
        return Reason::Silent;
    return m_budget.MaxSilentBytes() > 0 && takesTooMuch() ? Reason::Memory : Reason::None;
}

bool KernelWatch::takesTooMuch() noexcept
{
    const std::size_t bytes = OrvikOs::ResidentBytes();
    if (m_bytesBefore == 0)
        m_bytesBefore = bytes;
    const std::size_t grown = bytes > m_bytesBefore ? bytes - m_bytesBefore : 0;
    m_isGrowing = grown > m_budget.MaxSilentBytes() / 4;
    return grown > m_budget.MaxSilentBytes();
}

void KernelWatch::endIt(void* context)
{
    auto& watch = *static_cast<KernelWatch*>(context);
    if (watch.m_reason == Reason::Cancelled) {
        watch.BeginCleanup();
        throw JobCancelled();
    }
    // What comes next has its own time.
    watch.ShowSignOfLife();
    if (watch.m_reason == Reason::Silent)
        watch.m_budget.LosePatience();
    // Exactly this type, which the kernel's handlers on the way are known to catch.
    throw Standard_Failure(watch.m_reason == Reason::Silent ? kNoEnd : kTooMuchMemory);
}

} // namespace

KernelBudget::KernelBudget() : m_silentMs(kLaterSilentMs) {}

KernelBudget::KernelBudget(const KernelLimits& limits, std::size_t fileBytes)
    : m_silentMs(limits.silentMs + limits.silentMsPerMegabyte * fileBytes / kMegabyte),
      m_maxSilentBytes(24 * kMegabyte + 20 * fileBytes)
{
}

void KernelBudget::LosePatience()
{
    m_silentMs.store(std::max(SilentMs() / 4, kLeastSilentMs), std::memory_order_relaxed);
}

std::wstring RunWatched(KernelBudget& budget, const std::function<void()>& body)
{
    return RunGuarded([&] {
        const KernelWatch watch(budget);
        body();
    });
}

void ShowSignOfLife() noexcept
{
    if (t_watch)
        t_watch->ShowSignOfLife();
}

CleanupScope::CleanupScope() noexcept
{
    if (t_watch)
        t_watch->BeginCleanup();
}

CleanupScope::~CleanupScope()
{
    if (t_watch)
        t_watch->EndCleanup();
}

void PollJob()
{
    ShowSignOfLife();
    const CancelToken& token = CancelToken::Instance();
    if (t_watch && token.IsCancelled())
        t_watch->BeginCleanup();
    token.ThrowIfCancelled();
}

} // namespace OrvikCad
