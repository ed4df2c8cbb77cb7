#ifndef ORVIKCORE_JOBDISPATCHER_H
#define ORVIKCORE_JOBDISPATCHER_H

#include "OrvikCore/CircularFifo.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/JobTicket.h"

#include <OrvikOs/Event.h>
#include <OrvikOs/Snapshot.h>
#include <OrvikOs/Thread.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace OrvikCore {

class IJob;
class IJobStatusObserver;

/// Runs jobs and scripts one after another on the one worker thread, "PelluxWorker".
///
/// The main thread fills a JobTicket and submits it; the dispatcher copies it into a ring of 100,
/// the worker takes it out, runs it, tells the observers, keeps it as the last ticket and signals a
/// named event. A synchronous submitter waits for that event while the messages of the main thread
/// (mouse, timers, painting) and the registered wake sources are served, and then receives the last
/// ticket.
///
/// There is one dispatcher in a process. It holds no locks: one thread pushes tickets (main), one
/// pops them (worker), and the flags between them are polled.
class ORVIKCORE_API JobDispatcher
{
public:
    /// Creates the dispatcher on first use and starts its worker.
    ///
    /// Until that has succeeded every call tries again, so that a name that was taken may be free
    /// by then. The first call takes 100 ms.
    ///
    /// @throws std::runtime_error "JobDispatcher cannot create event <name>" or "JobDispatcher
    /// Event
    ///         with this name already exists: <name>", with <name> =
    ///         Local\JobDispatcherEvent_<calling thread id>_<process id>.
    /// @thread Main thread first, with Orvik_mainThreadId set; then any thread.
    static JobDispatcher& Instance();

    JobDispatcher(const JobDispatcher&) = delete;
    JobDispatcher& operator=(const JobDispatcher&) = delete;

    /// Submits a ticket and, when it is synchronous, waits for its end.
    ///
    /// On return @p ticket holds the ticket that the worker finished last. That is the caller's own
    /// for a synchronous request that ran to its end; it is an earlier one for an asynchronous
    /// request, after a wait that ended early, and when an event of an earlier job was still set.
    ///
    /// Nothing happens, and the ticket stays as it was, after Terminate(), inside another
    /// ExecuteJob (from a window procedure during a wait), and after a refusal: when the worker
    /// stays busy for 2000 ms a synchronous request of the main thread is refused, its ticket
    /// fails with "Application is busy. The request is denied.", all observers are told, and from
    /// then on the dispatcher accepts nothing more.
    ///
    /// At most 100 tickets wait; a further one is dropped without a word.
    ///
    /// A wait for a JID_EXECUTE_JOB ends with the job time-out once the worker has taken the job; a
    /// wait for a script, or for a job still in the ring, starts again. A quit message ends any
    /// wait; it is taken and not posted again.
    ///
    /// @thread Main thread. On the worker, inside a running job: JID_EXECUTE_SCRIPT only, which
    ///         runs at once on the calling thread.
    void ExecuteJob(JobTicket& ticket);

    /// Runs a job synchronously and discards its ticket; ignored as above.
    ///
    /// @param job  not owned; must stay alive until the worker has finished it, also when the wait
    ///             ends before. Jobs that may be waited for in vain go to ExecuteParked.
    /// @thread Main thread.
    void ExecuteJob(IJob& job);

    /// Submits a ticket as ExecuteJob does and keeps what it refers to alive until the worker has
    /// finished it.
    ///
    /// For requests that may outlive their submitter: the job, or the script text, lives on the
    /// heap and the dispatcher shares it. A block whose ticket was not queued is not kept. An
    /// event that an earlier job has left behind does not end the wait.
    ///
    /// @param block  what the addresses in @p ticket point into; shared. Released on the main
    ///               thread, at the end of a later submission or in Terminate(); never released
    ///               when the worker had to be stopped by force.
    /// @return true when the worker has finished this very ticket, so that the block's results may
    ///         be read; false when it has not, or never will.
    /// @thread As ExecuteJob.
    bool ExecuteParked(JobTicket& ticket, const std::shared_ptr<const void>& block);

    /// Runs a job synchronously as ExecuteJob(IJob&) does and keeps it alive until the worker has
    /// finished it.
    ///
    /// @return true when the job has ended, so that its results may be read.
    /// @thread Main thread.
    bool ExecuteParked(const std::shared_ptr<IJob>& job);

    /// @return true when the worker runs a ticket or one waits in the ring.
    /// @thread Any thread.
    bool IsBusy() const;

    /// Appends an observer unless it is registered already; null is ignored.
    ///
    /// @param observer  not owned; outlives its registration.
    /// @thread Main thread.
    void RegisterJobStatusObserver(IJobStatusObserver* observer);

    /// Removes an observer; a job that is finishing at that moment may still tell it once.
    ///
    /// @thread Main thread.
    void UnRegisterJobStatusObserver(IJobStatusObserver* observer);

    /// Sets how long a synchronous wait lasts before it is looked at again, 30000 ms at start.
    /// Values of 0 or less are ignored.
    ///
    /// @thread Main thread.
    void SetJobTimeout(int milliseconds);

    /// Stops the worker for good; later submissions do nothing, a second call only traces.
    ///
    /// The worker is given about one second to leave its job. One that does not is parked for good
    /// where it stands, and what it may be using is never freed.
    ///
    /// @thread Main thread.
    void Terminate();

private:
    class Owner;

    enum class Submission
    {
        Ignored,
        Queued,
        RanHere
    };

    /// A parked block and the number of the ticket that needs it.
    struct Parked
    {
        std::uint64_t number;
        std::shared_ptr<const void> block;
    };

    /// The last ticket as its snapshot holds it: never changed, so its copies need no lock.
    struct LastTicket
    {
        LastTicket() = default;
        explicit LastTicket(const JobTicket& finished) { ticket = finished; }
        LastTicket(const LastTicket& other) { ticket = other.ticket; }
        LastTicket& operator=(const LastTicket&) = default;

        JobTicket ticket;
    };

    JobDispatcher();
    ~JobDispatcher();

    void Initialize();
    void createEvent(const std::wstring& name);
    void startWorker();
    bool submit(JobTicket& ticket, const std::shared_ptr<const void>& block);
    bool waitWhileBusy() const;
    Submission startJob(JobTicket& ticket);
    void runTicket(JobTicket& ticket);
    void executeScript(JobTicket& ticket);
    void notifyClient(JobTicket* ticket);
    bool waitForNotification(JobTicket ticket, int timeout);
    void printDebugMessage(unsigned long waitResult, JobTicket* ticket);
    void releaseFinished();
    void stopWorker();
    bool close();
    bool hasWorker() const;
    static unsigned messageLoop(void* dispatcher);

    OrvikOs::Thread m_worker;
    OrvikOs::Event m_event; ///< Auto-reset; set by the worker once for each finished ticket.
    std::atomic<bool> m_terminating{false};  ///< Written on the main thread, read on both.
    std::atomic<bool> m_busy{false};         ///< Written on the worker (and by Terminate).
    std::atomic<bool> m_inExecute{false};    ///< Guards ExecuteJob against re-entry.
    std::atomic<int> m_jobTimeoutMs{30000};  ///< Milliseconds.
    std::atomic<bool> m_workerExited{false}; ///< Written on the worker as it leaves its loop.
    CircularFifo<JobTicket, 100> m_queue;
    OrvikOs::Snapshot<std::vector<IJobStatusObserver*>> m_observers; ///< Not owned; in order.
    OrvikOs::Snapshot<LastTicket> m_lastTicket; ///< Written on the worker, read on both.
    std::atomic<bool> m_initialized{false};

    std::uint64_t m_queued = 0;               ///< Tickets put into the ring; main thread.
    std::atomic<std::uint64_t> m_finished{0}; ///< Tickets done with; written on the worker.
    std::vector<Parked> m_parked;             ///< Kept alive for the worker; main thread.
};

} // namespace OrvikCore

#endif
