#ifndef TAMBCOMMANDSINFRA_CANCELTOKEN_H
#define TAMBCOMMANDSINFRA_CANCELTOKEN_H

#include "TambCommandsInfra/Export.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <stdexcept>

namespace TambCommandsInfra {

/// What a job throws when it notices that it was cancelled; its text is "The job was cancelled.".
class TAMBCOMMANDSINFRA_API JobCancelled : public std::runtime_error
{
public:
    JobCancelled();
    ~JobCancelled() override;
};

/// Tells the running job that it is no longer wanted.
///
/// Jobs are named by numbers, so that a cancel that comes late never hits the next job. Nobody is
/// stopped by force: loops poll IsCancelled() or call ThrowIfCancelled(), a script engine registers
/// an interrupter. The process uses one token, Instance(); tests may make their own.
///
/// @thread  Any thread, unless an operation says otherwise.
class TAMBCOMMANDSINFRA_API CancelToken
{
public:
    /// Interrupts whatever computes for the job; gets the number of the cancelled job.
    using Interrupter = std::function<void(std::uint64_t job)>;

    CancelToken();
    ~CancelToken();

    CancelToken(const CancelToken&) = delete;
    CancelToken& operator=(const CancelToken&) = delete;

    /// Gives the token of the process.
    static CancelToken& Instance();

    /// Gives a number that no job has had: 1, 2, 3, ...
    std::uint64_t NextJobNumber();

    /// Names the job that runs from now on. A job that was cancelled before it was armed is
    /// cancelled at once.
    ///
    /// @param job  At least 1, greater than every number armed before.
    /// @throws std::invalid_argument "Job numbers start at 1." for 0.
    /// @thread  The thread that runs the job.
    void Arm(std::uint64_t job);

    /// Ends the running job: a cancel that names it has no effect any more. Waits for interrupters
    /// that are being called, so that none of them meets the next job.
    ///
    /// @thread  The thread that ran the job.
    void Disarm();

    /// Gives the number of the running job, 0 when none runs.
    std::uint64_t RunningJob() const noexcept;

    /// Cancels the job @p job, whether it runs or is still to come, and calls the interrupters when
    /// it runs.
    ///
    /// @return true when it was the running job.
    bool Cancel(std::uint64_t job);

    /// Cancels the running job and calls the interrupters.
    ///
    /// @return the number of the job, 0 when none runs.
    std::uint64_t CancelCurrent();

    /// Sets the flag of the running job and calls nobody; Interrupt() makes up for it later.
    ///
    /// @return the number of the job, 0 when none runs.
    /// @thread  Any thread; also from a handler of a system signal.
    std::uint64_t MarkCurrent() noexcept;

    /// Calls the interrupters when the running job is cancelled; may be repeated for a script that
    /// shrugs it off.
    ///
    /// @return true when they were called.
    bool Interrupt();

    /// Tells whether the running job is cancelled; false when none runs. Cheap enough for inner
    /// loops.
    bool IsCancelled() const noexcept;

    /// Throws when the running job is cancelled.
    ///
    /// @throws JobCancelled "The job was cancelled."
    void ThrowIfCancelled() const;

    /// Adds an interrupter.
    ///
    /// @param interrupter  Called on the thread that cancels, one at a time; must not wait for the
    ///                     job and not add or remove interrupters.
    /// @return a number for RemoveInterrupter(), at least 1.
    int AddInterrupter(Interrupter interrupter);

    /// Removes an interrupter; when this returns it is not running and never called again.
    void RemoveInterrupter(int id);

private:
    bool mark(std::uint64_t job) noexcept;

    std::atomic<std::uint64_t> m_nextJob{1};   ///< Number that NextJobNumber() gives next.
    std::atomic<std::uint64_t> m_running{0};   ///< Job that runs; 0 for none.
    std::atomic<std::uint64_t> m_cancelled{0}; ///< Latest job cancelled while it ran.
    std::atomic<std::uint64_t> m_announced{
        0};             ///< Latest job cancelled while another, or none, ran.
    std::mutex m_mutex; ///< Guards the interrupters; held while they run.
    std::map<int, Interrupter> m_interrupters; ///< By the number that AddInterrupter() gave.
    int m_nextInterrupter = 1;                 ///< Number that AddInterrupter() gives next.
};

/// Arms a token for the time of one job and disarms it at the end, however the job ends.
///
/// @thread  The thread that runs the job.
class TAMBCOMMANDSINFRA_API CancelScope
{
public:
    /// Arms @p token for the job @p job. See CancelToken::Arm().
    ///
    /// @param token  Not owned; outlives the scope.
    CancelScope(CancelToken& token, std::uint64_t job);
    ~CancelScope();

    CancelScope(const CancelScope&) = delete;
    CancelScope& operator=(const CancelScope&) = delete;

private:
    CancelToken& m_token; ///< Not owned.
};

} // namespace TambCommandsInfra

#endif
