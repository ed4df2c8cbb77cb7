#ifndef ORVIKCAD_KERNEL_KERNELWATCH_H
#define ORVIKCAD_KERNEL_KERNELWATCH_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace OrvikCad {

/// What the kernel may use without a sign of life: damaged geometry can make it compute for hours,
/// or without end, in loops that never ask whether they should stop.
struct KernelLimits
{
    std::uint64_t silentMs = 5'000;            ///< Processor time between two signs of life.
    std::uint64_t silentMsPerMegabyte = 1'000; ///< More of it for each megabyte of the file.
};

/// What is left of the limits for one file, shared by all threads that work on it.
///
/// @thread  Any thread.
class KernelBudget
{
public:
    /// For work on what has been read before: ten seconds, any memory.
    KernelBudget();

    /// For reading a file of that size. Code that shows no sign of life may not take more than
    /// 24 MB and 20 times the size of the file meanwhile.
    KernelBudget(const KernelLimits& limits, std::size_t fileBytes);

    /// Lets the kernel take any memory: for what was asked for.
    void AllowAnyMemory() { m_maxSilentBytes = 0; }

    KernelBudget(const KernelBudget&) = delete;
    KernelBudget& operator=(const KernelBudget&) = delete;

    std::uint64_t SilentMs() const { return m_silentMs.load(std::memory_order_relaxed); }
    /// @return what the process may grow by during one silence; 0 for any.
    std::size_t MaxSilentBytes() const { return m_maxSilentBytes; }

    /// Leaves less patience for the next time: a quarter, down to a twentieth of a second.
    void LosePatience();

private:
    std::atomic<std::uint64_t> m_silentMs;
    std::size_t m_maxSilentBytes = 0;
};

/// Runs code of the kernel as RunGuarded does, and ends it by force where it does not stop by
/// itself: kCancelPatienceMs after the job was cancelled, or when it shows no sign of life for
/// longer than the budget allows.
///
/// Destructors that run once the cancel has been noticed, by PollJob() or by force, are left alone
/// for kCleanupPatienceMs: large models take long to give their memory back, and what is left in
/// the middle of it is lost.
///
/// Code that the kernel's own exceptions end in the middle goes on behind that: a face or an entity
/// fails, the others are made.
///
/// @return  as RunGuarded.
/// @throws  as RunGuarded.
std::wstring RunWatched(KernelBudget& budget, const std::function<void()>& body);

/// Processor time that the kernel is given to notice a cancel by itself.
inline constexpr unsigned kCancelPatienceMs = 300;

/// Processor time that destructors are given then, also where somebody has caught the exception.
inline constexpr unsigned kCleanupPatienceMs = 10'000;

/// While one lives, the watch of the calling thread does not end the work for a cancel: around
/// destructors of large objects of the kernel.
class CleanupScope
{
public:
    CleanupScope() noexcept;
    ~CleanupScope();
    CleanupScope(const CleanupScope&) = delete;
    CleanupScope& operator=(const CleanupScope&) = delete;
};

/// Tells the watch of the calling thread that the work goes on. Cheap; does nothing without one.
void ShowSignOfLife() noexcept;

/// Shows a sign of life, and ends the work where the job was cancelled.
/// @throws TambCommandsInfra::JobCancelled
void PollJob();

} // namespace OrvikCad

#endif
